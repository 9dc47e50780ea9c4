' Every class is created by its name, builds its command, and answers an empty response with Nothing.

Sub TestCommand(name, entries, command)
    Dim trans
    Set trans = CreateObject("VantroProfileUtils." & name)
    Test.Equal trans.CreateCommand(Collection(entries)), command, name & " command"
    Test.Equal (trans.VerifyResponse("", Collection(entries)) Is Nothing), True, name & " empty response"
End Sub

TestCommand "CPBITrans", Array("strKeyIndex", "14", "blnKeyAllPNR", False), "PBI/14"
TestCommand "CPBNTrans", Array("strKeyIndicator", "Traveller", "strKeyCompany", "KESTRELLO TOOLS", _
    "strKeyName", "SMITH/ANNA", "blnKeyAllPNR", False, "blnKeyExactMatch", False), "PBN/-SMITH/ANNA"
TestCommand "CPCNTrans", Array("strKeyCompany", ""), "PCN/"
TestCommand "CPDATrans", Array("strKeyName", "SMITH", "strKeyCompany", ""), "PDA/-SMITH"
TestCommand "CPDITrans", Array("strKeyIndex", "12"), "PDI/12"
TestCommand "CPDMDTrans", Array(), "PDMD"
TestCommand "CPDNTrans", Array("strKeyName", "SMITH", "strKeyCompany", "KESTRELLO", "blnKeyExactMatch", True, _
    "strKeyOfficeID", "LISVN2207"), "PDN/LISVN2207/KESTRELLO-SMITH/"
TestCommand "CPDRTrans", Array("strKeyRecLoc", "KQ4R7T", "strKeyIndicator", "T"), "PDRT/KQ4R7T"
TestCommand "CPDTrans", Array("strKeyItemNr", "4", "blnKeyFromPNR", False), "PD4"
TestCommand "CPDTTrans", Array(), "PDT"
TestCommand "CPHTrans", Array("strKeyElementNr", ""), "PH"
TestCommand "CPLCTrans", Array("strKeyOfficeID", "OSLVN4404"), "PLC/OSLVN4404"
TestCommand "CPLTTrans", Array("strKeyOfficeID", "NCEVN3101", "strKeyCompany", "KESTRELLO", _
    "blnKeyExactMatch", False), "PLT/NCEVN3101/KESTRELLO"
TestCommand "CProfileMode", Array("blnKeyUpdate", False, "blnKeyExit", True, "blnKeyEnter", False, _
    "blnKeyIgnore", False), "PME"
TestCommand "CPXTrans", Array("strKeyItemNr", "3"), "PX3"
TestCommand "CRLPTrans", Array("strKeyIndex", "0"), "RLP"
TestCommand "CPTTrans", Array("blnKeyAllPNR", True, "blnKeyOverride", True, "strKeyElements", "4", _
    "strKeySegAsso", "2-3", "strKeyPasAsso", "1", "intKeyArraySize", ""), "PTO*4/S2-3/P1"
TestCommand "CProfileNotes", Array("strCommand", "PNE"), "PNE"

' The one class without commands.
Dim profile, request
Set profile = CreateObject("VantroProfileUtils.CProfile")
Set request = Collection(Array("strKeyPrefix", "NM"))
Test.Equal (profile.ProfileElements(Screen(Array("PDR/KQ4R7T", "*T*", "   NM SMITH/ANNA MS")), request) Is Nothing), _
    True, "a known family gives Nothing"
Test.Equal ValueOf(request, "strKeyElement"), "SMITH/ANNA MS", "the name"

' A versioned name is the same class.
Test.Equal CreateObject("VantroProfileUtils.CPDTTrans.1").CreateCommand(), "PDT", "versioned name"
Test.Done
