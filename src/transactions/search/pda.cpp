//   ....+....1....+....2....+....3....+....4....+....5....+....6
// 0 PDA/KES
// 1 SIMILAR COMPANY NAME LIST
// 2      COMPANY                                     OFFICE
// 3    1 KESTRELLO TOOLS
// 4    2 KESTERSON MARINE
// 5 END OF BLOCK - USE PDMD
//
// There is no column of record locators: the rest of an entry's line is the company's name.
#include "transactions/search/pda.h"

#include "framework/joined_text.h"
#include "transactions/search/list_reader.h"

namespace vantro {

namespace {

enum class Shown : std::uint8_t { Nothing, CompanyProfile, TravellerProfile, CompanyList, TravellerList };

// Meant: a profile's mark must start its line, a list's title may be anywhere in its line, and line 0 counts.
constexpr LineRange titleLines{0, 5};
// clang-format off
constexpr ScreenTest<Shown> titles[] = {
    {mark::companyProfile,    Match::LineStart, Shown::CompanyProfile},
    {mark::travellerProfile,  Match::LineStart, Shown::TravellerProfile},
    {mark::similarCompanies,  Match::Anywhere,  Shown::CompanyList},
    {mark::similarTravellers, Match::Anywhere,  Shown::TravellerList},
};
// clang-format on

/// Reads the entries of a list, or of the continuation of one. `endOfBlock` comes with the value of the screen before
/// and is set while the entries are read.
class NameList {
public:
    NameList(ListWalk lines, TextView headerMark, bool& endOfBlock)
        : lines_(lines),
          isContinuation_(endOfBlock),
          headerMark_(isContinuation_ ? anyLine : headerMark),
          endOfBlock_(endOfBlock) {}

    /// Calls `onEntry` with every entry's line and its number.
    template <class OnEntry>
    void read(const OnEntry& onEntry) {
        if (!findHeader()) return;
        if (isContinuation_) lines_.stepBack();  // Meant: a continuation's entries begin on line 1, not 2
        readEntries(onEntry);
    }

    /// The same when the next line is the first entry.
    template <class OnEntry>
    void readEntries(const OnEntry& onEntry) {
        do {
            readBlock(onEntry);
        } while (hasListNumber(lines_.line()) && findNextHeader());
    }

private:
    bool findHeader() {
        if (!lines_.findHeader(headerMark_)) return false;
        if (isContinuation_) lines_.stepBack();  // the line found is the first entry
        return true;
    }

    bool findNextHeader() {
        lines_.decided(rule::listSearchGoesOn);
        return findHeader();
    }

    template <class OnEntry>
    void readBlock(const OnEntry& onEntry) {
        const Counter first = lines_.nextNumber();
        const ReadingRule* end = nullptr;
        while ((end = endAt(lines_.next())) == nullptr) {
            lines_.decided(rule::listEntry);
            onEntry(lines_.line(), lines_.number());
        }
        if (lines_.watch()) lines_.sayBlockEnd(*end, first);
    }

    // The rule by which a line ends the block, or null for an entry.
    const ReadingRule* endAt(TextView line) {
        endOfBlock_ = lines_.isEndOfBlock();
        if (endOfBlock_) return &rule::listEndOfBlock;
        if (!lines_.isUsable()) return &lines_.endOfUnusable();
        return hasListNumber(line) ? nullptr : &rule::listNoNumber;
    }

    ListWalk lines_;
    bool isContinuation_;
    TextView headerMark_;
    bool& endOfBlock_;
};

void readNames(NameList list, JoinedText& names) {
    list.read([&names](TextView line, std::int16_t /*lineNumber*/) {
        if (!names.empty()) names.insert(u",");
        names.append(trimmed(mid(line, entryTextColumn)));
    });
}

void readScreen(Screen& screen, bool& endOfBlock, Results& results) {
    const auto seen = findShown(screen, titleLines, titles, Shown::Nothing);
    JoinedText names(screen.watch());
    if (endOfBlock || seen.shown == Shown::CompanyList) {
        readNames(NameList(ListWalk(screen, 1, seen.line), mark::companyColumn, endOfBlock), names);
    }
    results.add(key::blnKeyCoProfile, seen.shown == Shown::CompanyProfile);
    results.add(key::blnKeyTrProfile, seen.shown == Shown::TravellerProfile);
    results.add(key::blnKeyCoList, seen.shown == Shown::CompanyList);
    results.add(key::strKeyCoNames, std::move(names).take());
    results.add(key::blnKeyTrList, seen.shown == Shown::TravellerList);
    results.add(key::blnKeyEndOfBlock, endOfBlock);
}

void addNames(ListWalk above, TextView headerMark, ProfileKind kind, ListRows& found) {
    found.isList = true;
    bool endOfBlock = false;
    NameList(above, headerMark, endOfBlock).read(nameAdder(above.watch(), kind, found));
}

void addNamesBelowHeader(Screen& screen, ListRows& found) {
    const auto header = findColumnHeader(screen);
    if (header.shown == ListBelow::Nothing) return;
    const bool companies = header.shown == ListBelow::Companies;
    addNames(directlyAbove(screen, header), companies ? mark::companyColumn : mark::nameColumn,
             companies ? ProfileKind::Company : ProfileKind::Traveller, found);
}

}  // namespace

Text CPDATrans::IProfileTrans_CreateCommand(const CollectionPtr& params) {
    Parameters input = parameters(params);
    const TextView name = input.read(key::strKeyName);
    const TextView company = input.read(key::strKeyCompany);
    if (name.empty() && company.empty()) return nothingToSend(rule::commandNeedsAnyName);
    // Meant: with both names the command is only the code and the slash.
    if (!name.empty() && !company.empty()) return concat({code::PDA, u"/"});
    return concat({code::PDA, u"/", company, onlyIf(!name.empty(), u"-"), name});
}

// Meant: the state is read before the response is tested for being empty.
CollectionPtr CPDATrans::IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& collection) {
    CollectionPtr added = terminal().createCollection();
    bool endOfBlock = false;
    if (collection) endOfBlock = parameters(collection).read(key::blnKeyEndOfBlock);
    if (response.empty()) return {};
    Screen screen(terminal(), response);
    Results results(*added, screen.watch());
    reportErrors(terminal(), [&] { readScreen(screen, endOfBlock, results); });
    return added;
}

void CPDATrans::readRows(Screen& screen, Parameters& state, ListRows& found) {
    bool endOfBlock = state.read(key::blnKeyEndOfBlock);
    const auto seen = findShown(screen, titleLines, titles, Shown::Nothing);
    const ListWalk belowTitle(screen, 1, seen.line);
    if (endOfBlock) {
        const ListWalk aboveLine1(screen, 0, blankLine);
        NameList(aboveLine1, mark::companyColumn, endOfBlock)
            .readEntries(nameAdder(screen.watch(), ProfileKind::Company, found));
    } else if (seen.shown == Shown::CompanyList) {
        addNames(belowTitle, mark::companyColumn, ProfileKind::Company, found);
    } else if (seen.shown == Shown::TravellerList) {
        addNames(belowTitle, mark::nameColumn, ProfileKind::Traveller, found);
    } else if (seen.shown == Shown::Nothing) {
        addNamesBelowHeader(screen, found);
    }
}

Text CPDMDTrans::IProfileTrans_CreateCommand(const CollectionPtr& /*params*/) { return Text(code::PDMD); }

}  // namespace vantro
