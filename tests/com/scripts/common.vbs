Option Explicit

' What the VBScript clients share.

Function Collection(entries)
    Dim index, made
    Set made = CreateObject("VantroKestoFaces.KeyedCollection")
    For index = 0 To UBound(entries) Step 2
        made.Add entries(index), entries(index + 1)
    Next
    Set Collection = made
End Function

' The lines of a screen, each filled up to 80 characters.
Function Screen(lines)
    Dim line, text
    For Each line In lines
        text = text & line & Space(80 - Len(line))
    Next
    Screen = text
End Function

Function ValueOf(results, key)
    ValueOf = results.Item(key).Value
End Function

' The entries of an array with bars between them.
Function Barred(list)
    Dim entry, text
    For Each entry In list
        text = text & entry & "|"
    Next
    Barred = text
End Function
