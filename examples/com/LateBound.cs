using System;
using System.Runtime.InteropServices;

static class LateBound
{
    static dynamic Create(string name) => Activator.CreateInstance(Type.GetTypeFromProgID(name, true));

    // The lines of a screen, each filled up to 80 characters.
    static string Screen(params string[] lines) => string.Concat(Array.ConvertAll(lines, line => line.PadRight(80)));

    [STAThread]
    static void Main()
    {
        // The command of a name search.
        dynamic request = Create("VantroKestoFaces.KeyedCollection");
        request.Add("strKeyName", "SMITH/ANNA");
        request.Add("strKeyCompany", "");
        request.Add("blnKeyExactMatch", true);
        request.Add("strKeyOfficeID", "");
        dynamic search = Create("VantroProfileUtils.CPDNTrans");
        Console.WriteLine((string)search.CreateCommand(request));

        // What the host answered. An empty response has no results.
        dynamic results = search.VerifyResponse(Screen("PDN/-SMITH/ANNA/", "*T* SMITH/ANNA MS", ">"));
        Console.WriteLine("profile shown: " + (results != null && (bool)results.Item("blnKeyTrProfile").Value));

        // The elements of a profile.
        dynamic elements = Create("VantroKestoFaces.KeyedCollection");
        elements.Add("strKeyPrefix", "PPR");
        dynamic profile = Create("VantroProfileUtils.CProfile");
        profile.ProfileElements(
            Screen("PDN/-SMITH/ANNA/", "*T* SMITH/ANNA MS", "------- PRIORITY", "1  PPR/WINDOW SEAT", "2  PPR/TEA",
                   "END OF DISPLAY"),
            elements);
        object[] texts = profile.ListOf(elements, "strKeyElement()");
        for (int k = 1; k < texts.Length; ++k) Console.WriteLine(texts[k]);

        // A numbered error: its number is the low 16 bits.
        try
        {
            Create("VantroProfileUtils.CPXTrans").CreateCommand(null);
        }
        catch (COMException error)
        {
            Console.WriteLine((error.HResult & 0xFFFF) + " " + error.Source);
        }
    }
}
