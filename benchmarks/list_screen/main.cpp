// Reading one 24-line list screen, and building one command.
#include "common/allocations.h"
#include "common/alternating.h"
#include "common/element_set.h"
#include "list_screen/readers.h"
#include "list_screen/screens.h"

#include "vantro/built_in_terminal.h"
#include "vantro/registry.h"

#include <cstdio>

namespace {

using namespace vantro;
using namespace vantro::bench;

BuiltInTerminal& terminal() {
    static BuiltInTerminal the;
    return the;
}

/// An object of the class and its transaction interface.
class Transaction {
public:
    explicit Transaction(TextView name) : object_(createObject(*findClass(name), terminal())) {}
    IProfileTrans* operator->() const { return object_->profileTrans(); }

private:
    std::unique_ptr<ProfileObject> object_;
};

const Transaction& companySearch() {
    static const Transaction the(u"CPDNTrans");
    return the;
}

const Transaction& travellerList() {
    static const Transaction the(u"CPLTTrans");
    return the;
}

template <class Value>
Value read(const CollectionPtr& results, TextView key) {
    return std::get<Value>(results->Item(key)->Value());
}

CompanyList companiesOf(const CollectionPtr& results) {
    return {.travellerList = read<bool>(results, u"blnKeyTrList"),
            .travellerProfile = read<bool>(results, u"blnKeyTrProfile"),
            .companyList = read<bool>(results, u"blnKeyCompanyList"),
            .companyProfile = read<bool>(results, u"blnKeyCoProfile"),
            .merged = read<bool>(results, u"blnKeyMerge"),
            .names = read<Text>(results, u"strKeyCoNames"),
            .endOfBlock = read<bool>(results, u"blnKeyEndOfBlock"),
            .locatorColumn = read<std::int16_t>(results, u"strKeyRecLocPos")};
}

TravellerList travellersOf(const CollectionPtr& results) {
    return {.travellerList = read<bool>(results, u"blnKeyTravellerList"),
            .companyList = read<bool>(results, u"blnKeyCompanyList"),
            .profile = read<bool>(results, u"blnKeyProfile"),
            .merged = read<bool>(results, u"blnKeyMerge"),
            .names = read<Text>(results, u"strKeyCoNames"),
            .noCompany = read<bool>(results, u"blnKeyNoCoFoundString"),
            .noTraveller = read<bool>(results, u"blnKeyNoTrPrFoundString"),
            .locators = read<TextList>(results, u"strKeyNoCoAssoArray()")};
}

// The exact contenders return what the library returns: a collection with the same keys in the same order.
CollectionPtr collectionOf(CompanyList list) {
    CollectionPtr results = terminal().createCollection();
    results->Add(u"blnKeyTrList", list.travellerList);
    results->Add(u"blnKeyTrProfile", list.travellerProfile);
    results->Add(u"blnKeyCompanyList", list.companyList);
    results->Add(u"blnKeyCoProfile", list.companyProfile);
    results->Add(u"blnKeyMerge", list.merged);
    results->Add(u"strKeyCoNames", std::move(list.names));
    results->Add(u"blnKeyEndOfBlock", list.endOfBlock);
    results->Add(u"strKeyRecLocPos", static_cast<std::int16_t>(list.locatorColumn));
    return results;
}

CollectionPtr collectionOf(TravellerList list) {
    CollectionPtr results = terminal().createCollection();
    results->Add(u"blnKeyTravellerList", list.travellerList);
    results->Add(u"blnKeyCompanyList", list.companyList);
    results->Add(u"blnKeyProfile", list.profile);
    results->Add(u"blnKeyMerge", list.merged);
    results->Add(u"strKeyCoNames", std::move(list.names));
    results->Add(u"blnKeyNoCoFoundString", list.noCompany);
    results->Add(u"blnKeyNoTrPrFoundString", list.noTraveller);
    results->Add(u"strKeyNoCoAssoArray()", std::move(list.locators));
    return results;
}

// The command: a name search in another office.
constexpr TextView name = u"ABELMANN/IDA";
constexpr TextView company = u"KESTRELLO TOOLS";
constexpr TextView office = u"NCEVN3101";
constexpr TextView command = u"PDN/NCEVN3101/KESTRELLO TOOLS-ABELMANN/IDA/";

struct SearchParameters {
    Text name, company, office;
    bool exactMatch = false;
};

Text commandByHand(const SearchParameters& given) {
    if (given.name.empty() && given.company.empty()) return {};
    Text text;
    text.reserve(7 + given.office.size() + given.company.size() + given.name.size());
    text.append(u"PDN/").append(given.office);
    if (!given.office.empty()) text += u'/';
    text.append(given.company);
    if (!given.name.empty()) text.append(u"-").append(given.name);
    if (given.exactMatch) text += u'/';
    return text;
}

const SearchParameters& parameters() {
    static const SearchParameters the{Text(name), Text(company), Text(office), true};
    return the;
}

const CollectionPtr& collection() {
    static const CollectionPtr the = [] {
        CollectionPtr made = terminal().createCollection();
        made->Add(u"strKeyName", Text(name));
        made->Add(u"strKeyCompany", Text(company));
        made->Add(u"blnKeyExactMatch", true);
        made->Add(u"strKeyOfficeID", Text(office));
        return made;
    }();
    return the;
}

template <class List>
void require(const char* contender, std::size_t screen, const List& ours, const List& theirs) {
    requireEqual(contender, screen, ours == theirs ? "" : "the results differ");
}

void checkAll() {
    Pcre2Lists pcre2;
    Re2Lists re2;
    for (std::size_t i = 0; i < companyScreens().size(); ++i) {
        const auto& [utf16, utf8] = companyScreens()[i];
        const CompanyList ours = companiesOf(companySearch()->VerifyResponse(utf16, {}));
        require("company list by hand", i, ours, companiesOf(collectionOf(companiesByHand(utf16))));
        require("company list, PCRE2", i, ours, pcre2.companies(utf16));
        require("company list, RE2", i, ours, re2.companies(utf8));
        requireEqual("company list", i, ours.companyList && ours.names.size() > 100 ? "" : "nothing was read");
    }
    for (std::size_t i = 0; i < travellerScreens().size(); ++i) {
        const auto& [utf16, utf8] = travellerScreens()[i];
        const TravellerList ours = travellersOf(travellerList()->VerifyResponse(utf16, {}));
        require("traveller list by hand", i, ours, travellersOf(collectionOf(travellersByHand(utf16))));
        require("traveller list, PCRE2", i, ours, pcre2.travellers(utf16));
        require("traveller list, RE2", i, ours, re2.travellers(utf8));
        requireEqual("traveller list", i, ours.travellerList && ours.locators.size() > 3 ? "" : "nothing was read");
    }
    requireEqual("command", 0, companySearch()->CreateCommand(collection()) == command ? "" : "ours differs");
    requireEqual("command", 0, commandByHand(parameters()) == command ? "" : "by hand differs");
    std::printf("%zu company lists, %zu traveller lists, one command; all contenders agree\n\n",
                companyScreens().size(), travellerScreens().size());
}

/// The number of allocations of a call; its result is kept until they are counted.
template <class Call>
double allocationsOf(Call call) {
    const std::size_t before = allocationCount();
    const auto result = call();
    keep(result);
    return static_cast<double>(allocationCount() - before);
}

void countAllocations(Alternating& runner) {
    runner.figure("allocations: the command's text alone", allocationsOf([] { return Text(command); }));
    runner.figure("allocations: the command by hand", allocationsOf([] { return commandByHand(parameters()); }));
    runner.figure("allocations: CPDNTrans.CreateCommand",
                  allocationsOf([] { return companySearch()->CreateCommand(collection()); }));
}

/// Lets a contender read the screens in turn.
template <class Read>
void add(Alternating& runner, const char* contender, const std::vector<ListScreen>& screens, Read read) {
    runner.add(contender, [&screens, read](std::size_t begin, std::size_t end) {
        for (std::size_t i = begin; i < end; ++i) keep(read(screens[i % screens.size()]));
    });
}

constexpr std::size_t repetitions = 100'000;  // of a screen or a command in a pass

void addContenders(Alternating& runner) {
    static Pcre2Lists pcre2;
    static Re2Lists re2;
    const auto& companies = companyScreens();
    const auto& travellers = travellerScreens();
    add(runner, "companies, floor", companies, [](const auto& s) { return companiesByHand(s.utf16); });
    add(runner, "companies, exact", companies, [](const auto& s) { return collectionOf(companiesByHand(s.utf16)); });
    add(runner, "companies, CPDNTrans", companies,
        [](const auto& s) { return companySearch()->VerifyResponse(s.utf16, {}); });
    add(runner, "companies, PCRE2 with JIT", companies, [](const auto& s) { return pcre2.companies(s.utf16); });
    add(runner, "companies, RE2", companies, [](const auto& s) { return re2.companies(s.utf8); });
    add(runner, "travellers, floor", travellers, [](const auto& s) { return travellersByHand(s.utf16); });
    add(runner, "travellers, exact", travellers, [](const auto& s) { return collectionOf(travellersByHand(s.utf16)); });
    add(runner, "travellers, CPLTTrans", travellers,
        [](const auto& s) { return travellerList()->VerifyResponse(s.utf16, {}); });
    add(runner, "travellers, PCRE2 with JIT", travellers, [](const auto& s) { return pcre2.travellers(s.utf16); });
    add(runner, "travellers, RE2", travellers, [](const auto& s) { return re2.travellers(s.utf8); });
    add(runner, "command, by hand", companies, [](const auto& /*s*/) { return commandByHand(parameters()); });
    add(runner, "command, CPDNTrans", companies,
        [](const auto& /*s*/) { return companySearch()->CreateCommand(collection()); });
}

}  // namespace

int main(int argc, char** argv) {
    Alternating runner("list_screen", argc, argv);
    checkAll();
    countAllocations(runner);
    addContenders(runner);
    runner.run("24 lines", repetitions);
}
