' Text beyond ASCII passes unchanged.
Dim mode, params
Set mode = CreateObject("VantroProfileUtils.CProfileMode")
Set params = Collection(Array("blnKeyEnter", True))
mode.VerifyResponse Screen(Array("PM", "*PROFILE MODE* ÅSE ŁÓDŹ 東京")), params
Test.Equal ValueOf(params, "strKeyErrorString"), "*PROFILE MODE* ÅSE ŁÓDŹ 東京", "a line of the screen"
Test.Done
