Attribute VB_Name = "NameSearch"
Option Explicit

' The lines of a screen, each filled up to 80 characters.
Private Function HostScreen(rows As Variant) As String
    Dim row As Variant, text As String
    For Each row In rows
        text = text & row & Space(80 - Len(row))
    Next
    HostScreen = text
End Function

Public Sub ShowPriorities()
    Dim params As Object, search As Object, results As Object
    Dim profile As Object, request As Object, entry As Variant

    ' The command of a name search.
    Set params = CreateObject("VantroKestoFaces.KeyedCollection")
    params.Add "strKeyName", "SMITH/ANNA"
    params.Add "strKeyCompany", ""
    params.Add "blnKeyExactMatch", True
    params.Add "strKeyOfficeID", ""
    Set search = CreateObject("VantroProfileUtils.CPDNTrans")
    Debug.Print search.CreateCommand(params)

    ' What the host answered.
    Set results = search.VerifyResponse(HostScreen(Array("PDN/-SMITH/ANNA/", "*T* SMITH/ANNA MS", ">")))
    Debug.Print "profile shown: " & results.Item("blnKeyTrProfile").Value

    ' The elements of a profile.
    Set profile = CreateObject("VantroProfileUtils.CProfile")
    Set request = CreateObject("VantroKestoFaces.KeyedCollection")
    request.Add "strKeyPrefix", "PPR"
    profile.ProfileElements HostScreen(Array("PDN/-SMITH/ANNA/", "*T* SMITH/ANNA MS", "------- PRIORITY", _
        "1  PPR/WINDOW SEAT", "2  PPR/TEA", "END OF DISPLAY")), request
    For Each entry In profile.ListOf(request, "strKeyElement()")
        If entry <> "" Then Debug.Print entry
    Next

    ' A numbered error.
    On Error Resume Next
    CreateObject("VantroProfileUtils.CPXTrans").CreateCommand Nothing
    Debug.Print Err.Number & " " & Err.Source
End Sub
