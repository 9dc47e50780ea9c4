' The explanation of the last call, as a script sees it.
Dim control, search, results, profile, request, display, explanation, ignored, unset
Set control = CreateObject("VantroKestoFaces.StandInControl")

Function Contains(text, part)
    Contains = InStr(text, part) > 0
End Function

' Off at first.
Set search = CreateObject("VantroProfileUtils.CPDNTrans")
Test.Equal TypeName(search.Explain), "String", "a text"
Test.Equal search.Explain, "", "nothing before a call"
Set results = search.VerifyResponse(Screen(Array("PDN/KES", "SIMILAR COMPANY NAME LIST", _
    "     COMPANY                         RECLOC     OFFICE", _
    "   1 KESTRELLO TOOLS                 Q2W3E4     NCEVN3101", ">")))
Test.Equal search.Explain, "", "nothing of a call that was not recorded"

' A list.
Test.Equal search.Explain(True), "", "nothing before the switch"
Set results = search.VerifyResponse(Screen(Array("PDN/KES", "SIMILAR COMPANY NAME LIST", _
    "     COMPANY                         RECLOC     OFFICE", _
    "   1 KESTRELLO TOOLS                 Q2W3E4     NCEVN3101", ">")))
Test.Equal ValueOf(results, "strKeyCoNames"), "KESTRELLO TOOLS", "the result"
explanation = search.Explain
Test.Equal Contains(explanation, "VerifyResponse"), True, "the call"
Test.Equal Contains(explanation, "SIMILAR COMPANY NAME LIST"), True, "a mark"
Test.Equal Contains(explanation, "KESTRELLO TOOLS"), True, "a value"
Test.Equal Contains(explanation, vbCrLf), True, "lines"
Test.Equal Contains(Replace(explanation, vbCrLf, ""), vbLf), False, "no other line ends"
Test.Equal search.Explain(unset), explanation, "an empty variable switches nothing"
Test.Equal search.Explain, explanation, "kept until the next call"

' A command.
ignored = search.CreateCommand(Collection(Array("strKeyName", "SMITH/ANNA", "strKeyCompany", "", _
    "blnKeyExactMatch", True, "strKeyOfficeID", "")))
explanation = search.Explain
Test.Equal Contains(explanation, "CreateCommand"), True, "the next call"
Test.Equal Contains(explanation, "SMITH/ANNA"), True, "a parameter"
Test.Equal Contains(explanation, "VerifyResponse"), False, "replaces the one before it"
Test.Equal search.Explain(False), explanation, "what there was before the switch"
Test.Equal search.Explain, "", "dropped"

' A display.
Set profile = CreateObject("VantroProfileUtils.CProfile")
display = Screen(Array("PDR/KQ4R7T", "*T* SMITH/ANNA MS", "------- PRIORITY", "1  PPR/WINDOW SEAT", "2  PPR/TEA", _
    "END OF DISPLAY"))
profile.Explain True
Set request = Collection(Array("strKeyPrefix", "PPR", "intKeyIndex", 2))
profile.ProfileElements display, request
Test.Equal ValueOf(request, "strKeyElement"), "TEA", "the element"
explanation = profile.Explain
Test.Equal Contains(explanation, "ProfileElements"), True, "the call of the parser"
Test.Equal Contains(explanation, "line 4"), True, "the line of an element, from 0"
Test.Equal Contains(explanation, "TEA"), True, "its text"
Test.Equal profile.PPRElementsCount(display), 2, "a count"
Test.Equal Contains(profile.Explain, "PPRElementsCount"), True, "is a call"
explanation = profile.Explain
ignored = profile.ElementList("strPPRText")
Test.Equal profile.Explain, explanation, "a list is none"

On Error Resume Next

' A call that fails.
profile.ProfileElements display, Collection(Array("strKeyPrefix", ""))
Test.Equal Err.Number, 5065, "the error"
Err.Clear
Test.Equal Contains(profile.Explain, "5065"), True, "is explained"

' An error that is reported and not raised.
search.Explain True
control.FailAtCall 1, 1004
search.VerifyResponse "X"
Test.Equal Err.Number, 0, "swallowed"
Test.Equal Contains(search.Explain, "1004"), True, "but explained"

' An argument that is no boolean.
ignored = search.Explain("perhaps")
Test.Equal Err.Number, 13, "a text"
Err.Clear
ignored = search.Explain(control)
Test.Equal Err.Number, 13, "an object"
Err.Clear
Test.Done
