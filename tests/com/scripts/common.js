// What the JScript clients share.

function collection(entries) {
    var made = new ActiveXObject("VantroKestoFaces.KeyedCollection");
    for (var key in entries) made.Add(key, entries[key]);
    return made;
}

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

function valueOf(results, key) { return results.Item(key).Value; }

function create(name) { return new ActiveXObject("VantroProfileUtils." + name); }

// The entries of an array of variants with bars between them.
function barred(list) {
    var entries = new VBArray(list).toArray(), text = "";
    for (var index = 0; index < entries.length; ++index) text += entries[index] + "|";
    return text;
}

// The error that a call throws.
function raised(call) {
    try {
        call();
    } catch (error) {
        return error;
    }
    return null;
}
