// Reading one 24-line list screen, and building one command.
#include "common/allocations.h"
#include "common/element_set.h"
#include "common/run.h"
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
            .noCompany = read<bool>(results, u"blnKeyNoCoFoundString"),
            .noTraveller = read<bool>(results, u"blnKeyNoTrPrFoundString"),
            .locators = read<TextList>(results, u"strKeyNoCoAssoArray()")};
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
        require("company list by hand", i, ours, companiesByHand(utf16));
        require("company list, PCRE2", i, ours, pcre2.companies(utf16));
        require("company list, RE2", i, ours, re2.companies(utf8));
        requireEqual("company list", i, ours.companyList && ours.names.size() > 100 ? "" : "nothing was read");
    }
    for (std::size_t i = 0; i < travellerScreens().size(); ++i) {
        const auto& [utf16, utf8] = travellerScreens()[i];
        const TravellerList ours = travellersOf(travellerList()->VerifyResponse(utf16, {}));
        require("traveller list by hand", i, ours, travellersByHand(utf16));
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
    benchmark::DoNotOptimize(result);
    return static_cast<double>(allocationCount() - before);
}

void countAllocations() {
    const double result = allocationsOf([] { return Text(command); });
    recordFigure("allocations: the command's text alone", result, result);
    recordFigure("allocations: the command by hand", allocationsOf([] { return commandByHand(parameters()); }), result);
    recordFigure("allocations: CPDNTrans.CreateCommand",
                 allocationsOf([] { return companySearch()->CreateCommand(collection()); }), result);
}

template <class Read>
void overScreens(const char* benchmarkName, const std::vector<ListScreen>& screens, Read read) {
    overDisplays(benchmarkName, static_cast<double>(screens.size()), [&screens, read] {
        for (const ListScreen& screen : screens) benchmark::DoNotOptimize(read(screen));
    });
}

void registerAll() {
    static Pcre2Lists pcre2;
    static Re2Lists re2;
    overScreens("companies, by hand", companyScreens(), [](const auto& s) { return companiesByHand(s.utf16); });
    overScreens("companies, PCRE2 with JIT", companyScreens(), [](const auto& s) { return pcre2.companies(s.utf16); });
    overScreens("companies, RE2", companyScreens(), [](const auto& s) { return re2.companies(s.utf8); });
    overScreens("companies, CPDNTrans", companyScreens(),
                [](const auto& s) { return companySearch()->VerifyResponse(s.utf16, {}); });
    overScreens("travellers, by hand", travellerScreens(), [](const auto& s) { return travellersByHand(s.utf16); });
    overScreens("travellers, PCRE2 with JIT", travellerScreens(),
                [](const auto& s) { return pcre2.travellers(s.utf16); });
    overScreens("travellers, RE2", travellerScreens(), [](const auto& s) { return re2.travellers(s.utf8); });
    overScreens("travellers, CPLTTrans", travellerScreens(),
                [](const auto& s) { return travellerList()->VerifyResponse(s.utf16, {}); });
    benchmark::RegisterBenchmark("command, by hand", [](benchmark::State& state) {
        for (auto _ : state) benchmark::DoNotOptimize(commandByHand(parameters()));
    });
    benchmark::RegisterBenchmark("command, CPDNTrans", [](benchmark::State& state) {
        for (auto _ : state) benchmark::DoNotOptimize(companySearch()->CreateCommand(collection()));
    });
}

constexpr Ratio ratios[] = {
    {"companies, CPDNTrans", "companies, by hand", 1.5},
    {"companies, CPDNTrans", "companies, PCRE2 with JIT", 0},
    {"companies, CPDNTrans", "companies, RE2", 0},
    {"travellers, CPLTTrans", "travellers, by hand", 1.5},
    {"travellers, CPLTTrans", "travellers, PCRE2 with JIT", 0},
    {"travellers, CPLTTrans", "travellers, RE2", 0},
    {"command, CPDNTrans", "command, by hand", 0},
};

}  // namespace

int main(int argc, char** argv) {
    checkAll();
    countAllocations();
    registerAll();
    return run("list_screen", argc, argv, ratios);
}
