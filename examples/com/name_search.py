import pywintypes
from win32com.client import Dispatch


def screen(*lines):
    """The lines of a screen, each filled up to 80 characters."""
    return "".join(line.ljust(80) for line in lines)


def collection(entries):
    made = Dispatch("VantroKestoFaces.KeyedCollection")
    for key, value in entries.items():
        made.Add(key, value)
    return made


# The command of a name search.
search = Dispatch("VantroProfileUtils.CPDNTrans")
print(search.CreateCommand(collection({"strKeyName": "SMITH/ANNA", "strKeyCompany": "", "blnKeyExactMatch": True,
                                       "strKeyOfficeID": ""})))

# What the host answered. An empty response has no results.
results = search.VerifyResponse(screen("PDN/-SMITH/ANNA/", "*T* SMITH/ANNA MS", ">"))
print("profile shown:", results is not None and results.Item("blnKeyTrProfile").Value)

# The elements of a profile.
request = collection({"strKeyPrefix": "PPR"})
Dispatch("VantroProfileUtils.CProfile").ProfileElements(
    screen("PDN/-SMITH/ANNA/", "*T* SMITH/ANNA MS", "------- PRIORITY", "1  PPR/WINDOW SEAT", "2  PPR/TEA",
           "END OF DISPLAY"), request)
for text in request.Item("strKeyElement()").Value[1:]:
    print(text)

# A numbered error: its number is the low 16 bits.
try:
    Dispatch("VantroProfileUtils.CPXTrans").CreateCommand(None)
except pywintypes.com_error as error:
    print(error.excepinfo[5] & 0xFFFF, error.excepinfo[1])
