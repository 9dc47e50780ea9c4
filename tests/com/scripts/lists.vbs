' Lists: indexed and walked through, read from arrays of variants, and changed in place.
Dim profile, request, display, list, entry, texts

display = Screen(Array("PDR/KQ4R7T", "*T* SMITH/ANNA MS", "------- PRIORITY", "1  PPR/WINDOW SEAT", "2  PPR/TEA", _
    "------- PNR TRANSFERABLE DATA", "S      3     RM KEEPS RECEIPTS", "A      4     AP  0441 5550", _
    "END OF DISPLAY"))
Set profile = CreateObject("VantroProfileUtils.CProfile")

Test.Equal profile.PPRElementsCount(display), 2, "count"
list = profile.ElementList("strPPRText")
Test.Equal UBound(list), 2, "entry 0 and two elements"
Test.Equal list(2), "TEA", "by index"
Test.Equal Barred(profile.ElementList("strPPRNumber")), "|1|2|", "walked through"
Test.Equal profile.RemarkElementsCount(display), 1, "a remark"
Test.Equal Barred(profile.ElementList("strRemarkText")), "RM KEEPS RECEIPTS|", "its text, with its code"
Test.Equal profile.ContactElementsCount(display), 1, "a contact, counted in a variant"
Test.Equal profile.PPHElementsCountold(display), 0, "the retired count"

Set request = Collection(Array("strKeyPrefix", "PPR", "intKeyIndex", 2))
profile.ProfileElements display, request
Test.Equal ValueOf(request, "strKeyElement"), "TEA", "the element at the index"
Test.Equal Barred(profile.ListOf(request, "strKeyElement()")), "|WINDOW SEAT|TEA|", "a list of the collection"

' The selection: an array of variants, changed in place.
Dim selection
selection = Array("s  rm", "ap")
Set request = Collection(Array("strKeyPrefix", "ALL"))
profile.ProfileElements display, request, selection
Test.Equal Barred(profile.ListOf(request, "strKeyElNbrsArray")), "|3|", "the elements selected"
Test.Equal selection(0), "RM", "the kind letter is taken off"
Test.Equal selection(1), "AP", "in upper case"
Set request = Collection(Array("strKeyPrefix", "ALL"))
selection = Array("rm", "ap")
profile.ProfileElements display, request, selection, "AP"
Test.Equal Barred(profile.ListOf(request, "strKeyElNbrsArray")), "|4|", "with a qualifier"

' Lists that a script stores.
Dim transfer
Set transfer = CreateObject("VantroProfileUtils.CPTTrans")
Set request = Collection(Array("blnKeyAllPNR", False, "blnKeyOverride", False, "strKeyElements", "", _
    "strKeySegAsso", "", "strKeyPasAsso", "", "intKeyArraySize", "1", "strKeyElArray()", Array("3", "5"), _
    "strKeySegArray()", Array("", "2"), "strKeyPasArray()", Array("1", "")))
Test.Equal transfer.CreateCommand(request), "PT3/P1//5/S2", "a command from lists"

' Notes, with and without filters.
Dim notes
Set notes = CreateObject("VantroProfileUtils.CProfileNotes")
display = Screen(Array("PDR/KQ4R7T", "*T* SMITH/ANNA MS", "------- PROFILE NOTES", "A WINDOW SEAT", "B PREFERS AISLE", _
    "END OF DISPLAY"))
Test.Equal notes.ProfileNotesElementsCount(display), 2, "all notes"
Test.Equal notes.ProfileNotesElementsCount(display, "", "B"), 1, "one qualifier"
Test.Equal notes.ProfileNotesElementsCount(display, "WINDOW"), 1, "one text"
Set request = Collection(Array("strKeyPrefix", "ProfileNotes", "strSearchQualifier", "B"))
Test.Equal (notes.ProfileElements(display, request) Is Nothing), True, "notes are in the collection"
Test.Equal Barred(notes.ListOf(request, "strKeyElement()")), "|PREFERS AISLE|", "the note"
Test.Equal Barred(notes.ListOf(request, "strKeyElementNr()")), "|2|", "its number"
Test.Equal Barred(notes.ListOf(request, "strKeyQualifier()")), "|B |", "its qualifier"
Test.Done
