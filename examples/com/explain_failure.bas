Attribute VB_Name = "ExplainFailure"
Option Explicit

' Prints why a call failed, or read what it did.
Public Sub ExplainElements(display As String, prefix As String)
    Dim parser As Object, request As Object
    Set parser = CreateObject("VantroProfileUtils.CProfile")
    Set request = CreateObject("VantroKestoFaces.KeyedCollection")
    request.Add "strKeyPrefix", prefix
    parser.Explain True
    On Error Resume Next
    parser.ProfileElements display, request
    If Err.Number <> 0 Then Debug.Print Err.Number & " " & Err.Description
    Debug.Print parser.Explain
    parser.Explain False
End Sub

Public Sub ExplainAnEmptyPrefix()
    ExplainElements "", ""
End Sub
