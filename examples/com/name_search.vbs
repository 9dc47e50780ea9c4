Option Explicit

' The lines of a screen, each filled up to 80 characters.
Function Screen(lines)
    Dim line, text
    For Each line In lines
        text = text & line & Space(80 - Len(line))
    Next
    Screen = text
End Function

Dim params, search, results, profile, request, entry

' The command of a name search.
Set params = CreateObject("VantroKestoFaces.KeyedCollection")
params.Add "strKeyName", "SMITH/ANNA"
params.Add "strKeyCompany", ""
params.Add "blnKeyExactMatch", True
params.Add "strKeyOfficeID", ""
Set search = CreateObject("VantroProfileUtils.CPDNTrans")
WScript.Echo search.CreateCommand(params)

' What the host answered.
Set results = search.VerifyResponse(Screen(Array("PDN/-SMITH/ANNA/", "*T* SMITH/ANNA MS", ">")))
WScript.Echo "profile shown: " & results.Item("blnKeyTrProfile").Value

' The elements of a profile.
Set profile = CreateObject("VantroProfileUtils.CProfile")
Set request = CreateObject("VantroKestoFaces.KeyedCollection")
request.Add "strKeyPrefix", "PPR"
profile.ProfileElements Screen(Array("PDN/-SMITH/ANNA/", "*T* SMITH/ANNA MS", "------- PRIORITY", _
    "1  PPR/WINDOW SEAT", "2  PPR/TEA", "END OF DISPLAY")), request
For Each entry In profile.ListOf(request, "strKeyElement()")
    If entry <> "" Then WScript.Echo entry
Next

' A numbered error.
On Error Resume Next
CreateObject("VantroProfileUtils.CPXTrans").CreateCommand Nothing
WScript.Echo Err.Number & " " & Err.Source
