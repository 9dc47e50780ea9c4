' Numbered errors as a script sees them, and the arguments that a script can pass.

Dim control, trans, params, text, missing
Set control = CreateObject("VantroKestoFaces.StandInControl")
Set params = Collection(Array("strKeyItemNr", "3", "strKeyCompany", "KESWICK"))

Sub TestError(number, source, description, what)
    Test.Equal Err.Number, number, what & ": number"
    Test.Equal Err.Source, source, what & ": source"
    Test.Equal Err.Description, description, what & ": description"
    Err.Clear
End Sub

On Error Resume Next

Set trans = CreateObject("VantroProfileUtils.CPXTrans")
text = trans.CreateCommand(Nothing)
TestError 5010, "VantroProfileUtils", "An error has occurred while creating a profile command.", "Nothing"
text = trans.CreateCommand()
TestError 5010, "VantroProfileUtils", "An error has occurred while creating a profile command.", "left out"
text = trans.CreateCommand(missing)
TestError 5010, "VantroProfileUtils", "An error has occurred while creating a profile command.", "Empty"
text = trans.CreateCommand("3")
TestError 13, "VantroProfileUtils", "Type mismatch", "no object"

Set trans = CreateObject("VantroProfileUtils.CPDTTrans")
control.FailAtCall 1, 1004
trans.VerifyResponse "*T*"
TestError 5025, "VantroProfileUtils", "An error has occurred while verifying the profile.", "the terminal fails"

' A class without numbers of its own raises the terminal's error.
Set trans = CreateObject("VantroProfileUtils.CPCNTrans")
control.FailAtCall 1, 1004
text = trans.CreateCommand(params)
TestError 1004, "VantroKestoFaces", "The terminal failed, as it was asked to.", "passed through"
control.FailAtCall 1, 40001
text = trans.CreateCommand(params)
TestError 40001, "VantroKestoFaces", "The terminal failed, as it was asked to.", "a high number"

' A reader that swallows its error reports it.
Set trans = CreateObject("VantroProfileUtils.CPDNTrans")
control.FailAtCall 1, 1004
trans.VerifyResponse "X"
Test.Equal Err.Number, 0, "swallowed"
Test.Equal control.ReportedCount, 1, "reported once"
Test.Equal control.Reported(0), 1004, "with its number"

CreateObject("VantroProfileUtils.CProfile").ProfileElements "X", Collection(Array("strKeyPrefix", ""))
TestError 5065, "VantroProfileUtils", "An error has occurred while verifying the profile.", "empty prefix"

control.Reset
On Error GoTo 0

' Arguments by value, by reference and through a variable.
Dim held
Set trans = CreateObject("VantroProfileUtils.CPXTrans")
Set held = params
Test.Equal trans.CreateCommand(held), "PX3", "a variable"
Test.Equal trans.CreateCommand((held)), "PX3", "a value"
Test.Equal TypeName(trans.CreateCommand(params)), "String", "a text comes back"
Test.Done
