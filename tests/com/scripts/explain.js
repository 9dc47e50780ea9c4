// The explanation of the last call, as a script sees it.

var trans = create("CPXTrans");
Test.Equal(trans.Explain(), "", "off at first");
Test.Equal(trans.CreateCommand(collection({strKeyItemNr: "3"})), "PX3", "unrecorded");
Test.Equal(trans.Explain(true), "", "nothing was recorded");
Test.Equal(trans.CreateCommand(collection({strKeyItemNr: "47"})), "PX47", "recorded");
Test.Equal(trans.Explain().indexOf("47") >= 0, true, "the parameter");
Test.Equal(trans.Explain().split("\r\n").length > 2, true, "lines");

var error = raised(function () { trans.CreateCommand(null); });
Test.Equal(error.number & 0xFFFF, 5010, "the error");
Test.Equal(trans.Explain().indexOf("5010") >= 0, true, "is explained");
error = raised(function () { trans.CreateCommand("3"); });
Test.Equal(error.number & 0xFFFF, 13, "no object");
Test.Equal(trans.Explain(false).indexOf("13") >= 0, true, "is explained too");
Test.Equal(trans.Explain(null), "", "dropped");
error = raised(function () { trans.Explain("perhaps"); });
Test.Equal(error.number & 0xFFFF, 13, "no boolean");
Test.Done();
