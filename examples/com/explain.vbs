' Why is TEA no element?
Option Explicit

Function Screen(lines)
    Dim line, text
    For Each line In lines
        text = text & line & Space(80 - Len(line))
    Next
    Screen = text
End Function

Dim profile, request
Set profile = CreateObject("VantroProfileUtils.CProfile")
Set request = CreateObject("VantroKestoFaces.KeyedCollection")
request.Add "strKeyPrefix", "PPR"
profile.Explain True
profile.ProfileElements Screen(Array("PDN/-SMITH/ANNA/", "*T* SMITH/ANNA MS", "------- PRIORITY", _
    "1  PPR/WINDOW SEAT", "------- GLOBAL SEARCH", "2  PPR/TEA", "END OF DISPLAY")), request
WScript.Echo profile.Explain(False)
