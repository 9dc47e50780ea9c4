' A name search with a long company list: the results of one screen are the state of the next.
Dim search, results, params

Set search = CreateObject("VantroProfileUtils.CPDNTrans")
Set params = Collection(Array("strKeyName", "", "strKeyCompany", "KES", "blnKeyExactMatch", False, _
    "strKeyOfficeID", ""))
Test.Equal search.CreateCommand(params), "PDN/KES", "command"

Set results = search.VerifyResponse(Screen(Array("PDN/KES", "SIMILAR COMPANY NAME LIST", _
    "     COMPANY                         RECLOC     OFFICE", _
    "   1 KESTRELLO TOOLS                 Q2W3E4     NCEVN3101", _
    "   2 KESWICK INKS                    J8K9L1     NCEVN3101", _
    "END OF BLOCK - USE PDMD", ">")))
Test.Equal ValueOf(results, "blnKeyCompanyList"), True, "company list"
Test.Equal ValueOf(results, "strKeyCoNames"), "KESTRELLO TOOLS,KESWICK INKS", "first names"
Test.Equal ValueOf(results, "blnKeyEndOfBlock"), True, "more to come"
Test.Equal ValueOf(results, "strKeyRecLocPos"), 38, "column of the record locator"
Test.Equal VarType(ValueOf(results, "strKeyRecLocPos")), 2, "as an integer"

Test.Equal CreateObject("VantroProfileUtils.CPDMDTrans").CreateCommand(results), "PDMD", "move down"
Set results = search.VerifyResponse(Screen(Array("PDMD", _
    "     COMPANY                         RECLOC     OFFICE", _
    "   3 KESTON ARCHIVES                 C1V2B3     NCEVN3101", _
    "   4 KESTON BOOKS                    C4V5B6     NCEVN3101", _
    "   5 KESTON CHARTS                   C7V8B9     NCEVN3101", _
    "   6 KESTON DRUMS                    D1F2G3     NCEVN3101", _
    "   7 KESTON ENAMEL                   D4F5G6     NCEVN3101", _
    "   8 KESTON FLAGS                    D7F8G9     NCEVN3101", _
    "   9 KESTON GLASS                    E1R2T3     NCEVN3101", _
    "  10 KESTON HATS                     E4R5T6     NCEVN3101", ">")), results)
Test.Equal ValueOf(results, "strKeyCoNames"), "KESTON ARCHIVES,KESTON BOOKS,KESTON CHARTS,KESTON DRUMS," & _
    "KESTON ENAMEL,KESTON FLAGS,KESTON GLASS,KESTON HATS", "names of the second screen"
Test.Equal ValueOf(results, "blnKeyEndOfBlock"), False, "the end"

' The order in which results were added is the order of their keys.
Test.Equal results.Count, 8, "eight results"
Test.Equal results.Key(0), "blnKeyTrList", "the first"
Test.Equal results.Key(7), "strKeyRecLocPos", "the last"

' A class that adds to the passed collection returns that one.
Dim mode
Set mode = CreateObject("VantroProfileUtils.CProfileMode")
Set params = Collection(Array("blnKeyEnter", True))
Set results = mode.VerifyResponse(Screen(Array("PM", "*PROFILE MODE*")), params)
Test.Equal (results Is params), True, "the passed collection"
Test.Equal ValueOf(params, "blnKeyResponseOK"), True, "confirmed"

' Linked profiles are counted first.
Dim linked, answer
Set linked = CreateObject("VantroProfileUtils.CRLPTrans")
answer = Screen(Array("RLP", "RP/NCEVN3101/NCEVN3101", "T/KQ4R7T /P1", "C/Q2W3E4", ">"))
Test.Equal linked.RecLocCount(answer), 2, "two linked profiles"
Set results = linked.VerifyResponse(answer, Collection(Array("strKeyIndex", "1")))
Test.Equal ValueOf(results, "strKeyRecLoc"), "Q2W3E4", "the second one"
Test.Equal ValueOf(results, "blnKeyCompany"), True, "is a company's"
Test.Done
