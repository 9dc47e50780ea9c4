// The lines of a screen, each filled up to 80 characters.
function screen(lines) {
    var text = "";
    for (var index = 0; index < lines.length; ++index) {
        var line = lines[index];
        while (line.length < 80) line += " ";
        text += line;
    }
    return text;
}

function collection(entries) {
    var made = new ActiveXObject("VantroKestoFaces.KeyedCollection");
    for (var key in entries) made.Add(key, entries[key]);
    return made;
}

// The command of a name search.
var search = new ActiveXObject("VantroProfileUtils.CPDNTrans");
WScript.Echo(search.CreateCommand(collection({strKeyName: "SMITH/ANNA", strKeyCompany: "", blnKeyExactMatch: true,
                                              strKeyOfficeID: ""})));

// What the host answered.
var results = search.VerifyResponse(screen(["PDN/-SMITH/ANNA/", "*T* SMITH/ANNA MS", ">"]));
WScript.Echo("profile shown: " + (results.Item("blnKeyTrProfile").Value ? "True" : "False"));

// The elements of a profile. A list is an array of variants, which VBArray makes into one of JScript.
var profile = new ActiveXObject("VantroProfileUtils.CProfile");
var request = collection({strKeyPrefix: "PPR"});
profile.ProfileElements(screen(["PDN/-SMITH/ANNA/", "*T* SMITH/ANNA MS", "------- PRIORITY", "1  PPR/WINDOW SEAT",
                                "2  PPR/TEA", "END OF DISPLAY"]), request);
var texts = new VBArray(profile.ListOf(request, "strKeyElement()")).toArray();
for (var k = 1; k < texts.length; ++k) WScript.Echo(texts[k]);

// A numbered error: its number is the low 16 bits.
try {
    new ActiveXObject("VantroProfileUtils.CPXTrans").CreateCommand(null);
} catch (error) {
    WScript.Echo((error.number & 0xFFFF) + " VantroProfileUtils");
}
