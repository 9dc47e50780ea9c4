// Every class is created by its name, builds its command, and answers an empty response with null.

function testCommand(name, entries, command) {
    var trans = create(name);
    Test.Equal(trans.CreateCommand(collection(entries)), command, name + " command");
    Test.Equal(trans.VerifyResponse("", collection(entries)) === null, true, name + " empty response");
}

testCommand("CPBITrans", {strKeyIndex: "14", blnKeyAllPNR: false}, "PBI/14");
testCommand("CPBNTrans", {strKeyIndicator: "Traveller", strKeyCompany: "KESTRELLO TOOLS", strKeyName: "SMITH/ANNA",
                          blnKeyAllPNR: false, blnKeyExactMatch: false}, "PBN/-SMITH/ANNA");
testCommand("CPCNTrans", {strKeyCompany: ""}, "PCN/");
testCommand("CPDATrans", {strKeyName: "SMITH", strKeyCompany: ""}, "PDA/-SMITH");
testCommand("CPDITrans", {strKeyIndex: "12"}, "PDI/12");
testCommand("CPDMDTrans", {}, "PDMD");
testCommand("CPDNTrans", {strKeyName: "SMITH", strKeyCompany: "KESTRELLO", blnKeyExactMatch: true,
                          strKeyOfficeID: "LISVN2207"}, "PDN/LISVN2207/KESTRELLO-SMITH/");
testCommand("CPDRTrans", {strKeyRecLoc: "KQ4R7T", strKeyIndicator: "T"}, "PDRT/KQ4R7T");
testCommand("CPDTrans", {strKeyItemNr: "4", blnKeyFromPNR: false}, "PD4");
testCommand("CPDTTrans", {}, "PDT");
testCommand("CPHTrans", {strKeyElementNr: ""}, "PH");
testCommand("CPLCTrans", {strKeyOfficeID: "OSLVN4404"}, "PLC/OSLVN4404");
testCommand("CPLTTrans", {strKeyOfficeID: "NCEVN3101", strKeyCompany: "KESTRELLO", blnKeyExactMatch: false},
            "PLT/NCEVN3101/KESTRELLO");
testCommand("CProfileMode", {blnKeyUpdate: false, blnKeyExit: true, blnKeyEnter: false, blnKeyIgnore: false}, "PME");
testCommand("CPXTrans", {strKeyItemNr: "3"}, "PX3");
testCommand("CRLPTrans", {strKeyIndex: "0"}, "RLP");
testCommand("CPTTrans", {blnKeyAllPNR: true, blnKeyOverride: true, strKeyElements: "4", strKeySegAsso: "2-3",
                         strKeyPasAsso: "1", intKeyArraySize: ""}, "PTO*4/S2-3/P1");
testCommand("CProfileNotes", {strCommand: "PNE"}, "PNE");

// The one class without commands, and lists.
var profile = create("CProfile");
var display = screen(["PDR/KQ4R7T", "*T* SMITH/ANNA MS", "------- PRIORITY", "1  PPR/WINDOW SEAT", "2  PPR/TEA",
                      "END OF DISPLAY"]);
var request = collection({strKeyPrefix: "PPR", intKeyIndex: 2});
Test.Equal(profile.ProfileElements(display, request) === null, true, "a known family gives null");
Test.Equal(valueOf(request, "strKeyElement"), "TEA", "the element at the index");
Test.Equal(barred(profile.ListOf(request, "strKeyElement()")), "|WINDOW SEAT|TEA|", "the list");
Test.Equal(profile.PPRElementsCount(display), 2, "the count");
Test.Equal(barred(profile.ElementList("strPPRNumber")), "|1|2|", "the numbers");

// Paging: the results of one screen are the state of the next.
var search = create("CPDNTrans");
var header = "     COMPANY                         RECLOC     OFFICE";
var results = search.VerifyResponse(screen(["PDN/KES", "SIMILAR COMPANY NAME LIST", header,
    "   1 KESTRELLO TOOLS                 Q2W3E4     NCEVN3101", "END OF BLOCK - USE PDMD", ">"]));
Test.Equal(valueOf(results, "strKeyCoNames"), "KESTRELLO TOOLS", "the first screen");
var lines = ["PDMD", header];
for (var number = 3; number < 11; ++number) {
    lines.push("  " + (number < 10 ? " " : "") + number + " KESTON " + number + "                        C7V8B9");
}
results = search.VerifyResponse(screen(lines.concat(">")), results);
Test.Equal(valueOf(results, "strKeyCoNames").split(",").length, 8, "the second screen");
Test.Equal(valueOf(results, "strKeyCoNames").split(",")[7], "KESTON 10", "its last name");

// Errors.
var error = raised(function () { create("CPXTrans").CreateCommand(null); });
Test.Equal(error.number & 0xFFFF, 5010, "number");
Test.Equal(error.description, "An error has occurred while creating a profile command.", "description");
error = raised(function () { create("CPCNTrans").CreateCommand(); });
Test.Equal(error.number & 0xFFFF, 91, "a class without numbers");
error = raised(function () { create("CPXTrans").CreateCommand("3"); });
Test.Equal(error.number & 0xFFFF, 13, "no object");
Test.Done();
