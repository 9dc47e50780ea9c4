#pragma once

// The profile reader, written step by step.

#include "collection.h"
#include "steps.h"

#include <map>
#include <string>
#include <vector>

namespace oracle {

struct Outcome {
    bool returnedCollection;
};

// One reader object: its lists are kept from call to call. Every property returns the number of elements and throws the
// Failure with its own number; profileElements throws 5065, a 52xx or the failing step's.
class ProfileOracle {
public:
    ProfileOracle();

    int PPRElementsCount(const Text& display);
    int PGLElementsCount(const Text& display);
    int PPSElementsCount(const Text& display);
    int PHIElementsCount(const Text& display);
    int PCIElementsCount(const Text& display);
    int PPCElementsCount(const Text& display);
    int PPHElementsCount(const Text& display);
    int PPHElementsCountold(const Text& display);
    int PPAElementsCount(const Text& display);
    int PPKElementsCount(const Text& display);
    int PPIElementsCount(const Text& display);
    int PXCElementsCount(const Text& display);
    int PXAElementsCount(const Text& display);
    int PXKElementsCount(const Text& display);
    int PSHElementsCount(const Text& display);
    int PSCElementsCount(const Text& display);
    int PPTElementsCount(const Text& display);
    int PXTElementsCount(const Text& display);

    int RemarkElementsCount(const Text& display);
    int ContactElementsCount(const Text& display);
    int OtherServiceElementsCount(const Text& display);
    int FrequentFlyerElementsCount(const Text& display);
    int ServiceRequestElementsCount(const Text& display);
    int SeatElementsCount(const Text& display);
    int RemarkConfElementsCount(const Text& display);

    int PASElementsCount(const Text& display);
    int PIVElementsCount(const Text& display);
    int PCEElementsCount(const Text& display);
    int PIDElementsCount(const Text& display);
    int PFOElementsCount(const Text& display);

    // The property with that name; std::invalid_argument when there is none.
    int count(const std::string& property, const Text& display);

    // A null selection means an absent one. The scan of family ALL changes the entries of a given selection. Keys added
    // before a failure stay in the request.
    Outcome profileElements(const Text& display, Collection& request, std::vector<Text>* selection,
                            const Text& qualifier);

    // By member name, "strPPRText", "strPPRNumber", "strRemarkText", ...
    std::map<std::string, std::vector<Text>> lists;
    std::vector<bool> blnServiceRequestFlag;

private:
    enum class Kind { Remark, Contact, OtherService, FrequentFlyer, ServiceRequest, Seat, RemarkConf };

    void cutBack(const std::string& family);
    int policyMember(const Text& display, const Text& header, const std::string& family, int start, int width,
                     int number);

    int transferable(const Text& display, Kind kind);
    bool isElement(const Text& line, Kind kind) const;
    void storeTransferable(const Text& line, Kind kind, int count);
    void storeFrequentFlyer(int count);
    void storeServiceRequest(int count);
    std::vector<Text>& emptied(const std::string& name, int count);

    int documents(const Text& display, const Text& header, const std::string& family, int number);

    void listOutput(const Text& display, const std::string& family, Collection& request);
    void indexedWithLists(const Text& display, const std::string& family, int number, Collection& request);

    // Adds the element and its number; returns the index of the element in the lists.
    int indexedSingle(const Text& display, const std::string& stem, int number, Collection& request);
    void serviceRequestOutput(const Text& display, Collection& request);
    void frequentFlyerOutput(const Text& display, Collection& request);
    void confidentialRemarkOutput(const Text& display, Collection& request);

    bool wholeWords(const Text& prefix, const Text& working, Collection& request);
    bool headerLines(const Text& prefix, const Text& working, Collection& request, std::vector<Text>* selection,
                     const Text& qualifier);
    bool elementLists(const Text& prefix, const Text& working, Collection& request);
};

// Readers of the display's header lines and of the whole transferable section.
Text profileName(const Text& display);
Text recordLocator(const Text& display);
Text officeIdentifier(const Text& display);
Text companyNameLine(const Text& display);
Text pinLine(const Text& display, Text& number);
void pslLine(const Text& display, Collection& request);
void scanTransferable(const Text& display, std::vector<Text>* selection, const Text& qualifier,
                      std::vector<Text>& output);

}  // namespace oracle
