using System;
using System.Runtime.InteropServices;

// What tlbimp would write. A dual interface lists its operations in the order of VantroProfileUtils.idl, those of the
// interface that it extends first.
[ComImport, Guid("D54EEFEE-D755-49DA-820C-6D36B5B9EF1D"), InterfaceType(ComInterfaceType.InterfaceIsDual)]
interface IProfileTrans
{
    [DispId(1)]
    [return: MarshalAs(UnmanagedType.BStr)]
    string CreateCommand([In, Optional, MarshalAs(UnmanagedType.Struct)] object parameters);

    [DispId(2)]
    [return: MarshalAs(UnmanagedType.IDispatch)]
    object VerifyResponse([In, MarshalAs(UnmanagedType.BStr)] string response,
                          [In, Optional, MarshalAs(UnmanagedType.Struct)] object collection);
}

// The first two operations, of those that CProfile has.
[ComImport, Guid("626491CD-5931-47BB-88DB-D8A584E84581"), InterfaceType(ComInterfaceType.InterfaceIsDual)]
interface ICProfile
{
    [DispId(3)]
    [return: MarshalAs(UnmanagedType.IDispatch)]
    object ProfileElements([In, MarshalAs(UnmanagedType.BStr)] string display,
                           [In, Optional, MarshalAs(UnmanagedType.Struct)] object collection,
                           [In, Out, Optional, MarshalAs(UnmanagedType.Struct)] ref object selection,
                           [In, Optional, MarshalAs(UnmanagedType.Struct)] object qualifier);

    [DispId(5)]
    [return: MarshalAs(UnmanagedType.Struct)]
    object ListOf([In, MarshalAs(UnmanagedType.Struct)] object collection,
                  [In, MarshalAs(UnmanagedType.BStr)] string key);
}

[ComImport, Guid("20F687BA-7CC8-4EAA-B3E3-787AA8DDD5CD")]
class CPDNTrans { }

[ComImport, Guid("747733BC-1DAD-48A7-BDF6-8EB4A1B7A428")]
class CPXTrans { }

[ComImport, Guid("A8ABDF43-9179-4028-8EB9-272943A36030")]
class CProfile { }

static class EarlyBound
{
    // The terminal's collection, by name: its interface is the terminal's own.
    static dynamic NewCollection() =>
        Activator.CreateInstance(Type.GetTypeFromProgID("VantroKestoFaces.KeyedCollection", true));

    // The lines of a screen, each filled up to 80 characters.
    static string Screen(params string[] lines) => string.Concat(Array.ConvertAll(lines, line => line.PadRight(80)));

    [STAThread]
    static void Main()
    {
        // The command of a name search.
        dynamic request = NewCollection();
        request.Add("strKeyName", "SMITH/ANNA");
        request.Add("strKeyCompany", "");
        request.Add("blnKeyExactMatch", true);
        request.Add("strKeyOfficeID", "");
        var search = (IProfileTrans)new CPDNTrans();
        Console.WriteLine(search.CreateCommand((object)request));

        // What the host answered.
        dynamic results = search.VerifyResponse(Screen("PDN/-SMITH/ANNA/", "*T* SMITH/ANNA MS", ">"), null);
        Console.WriteLine("profile shown: " + (results != null && (bool)results.Item("blnKeyTrProfile").Value));

        // The elements of a profile.
        dynamic elements = NewCollection();
        elements.Add("strKeyPrefix", "PPR");
        object noSelection = Type.Missing;
        var profile = (ICProfile)new CProfile();
        profile.ProfileElements(
            Screen("PDN/-SMITH/ANNA/", "*T* SMITH/ANNA MS", "------- PRIORITY", "1  PPR/WINDOW SEAT", "2  PPR/TEA",
                   "END OF DISPLAY"),
            (object)elements, ref noSelection, null);
        var texts = (object[])profile.ListOf((object)elements, "strKeyElement()");
        for (int k = 1; k < texts.Length; ++k) Console.WriteLine(texts[k]);

        // A numbered error: its number is the low 16 bits.
        try
        {
            ((IProfileTrans)new CPXTrans()).CreateCommand(null);
        }
        catch (COMException error)
        {
            Console.WriteLine((error.HResult & 0xFFFF) + " " + error.Source);
        }
    }
}
