// Running out of memory outside the operations: in collections, while an object is created, while one of its lists is
// read, and in `parseProfile` and `readRows`.
#include "tests/failures/allocations.h"
#include "tests/failures/inputs.h"
#include "tests/failures/profile_text.h"
#include "tests/support/text.h"
#include "vantro/built_in_terminal.h"
#include "vantro/list_rows.h"
#include "vantro/profile.h"

#include <gtest/gtest.h>

#include <functional>
#include <iostream>
#include <new>

namespace vantro::test {
namespace {

/// Runs the steps with allocation `failing` (from 1) failing. True if they then threw std::bad_alloc; it is a test
/// failure if the steps swallow that.
bool runsOut(long failing, const std::function<void()>& steps) {
    try {
        const FailingAllocation armed(failing);
        steps();
    } catch (const std::bad_alloc&) {
        return true;
    }
    EXPECT_LT(FailingAllocation::asked(), failing) << "the failure went unnoticed";
    return false;
}

// More keys than a linear search is meant for, each too long for the small-string buffer.
constexpr int keys = 40;
Text keyOf(int number) { return u"strKeyWithALongName" + wide(std::to_string(number)); }
ItemValue valueOf(int number) { return wide("the value number " + std::to_string(number)); }

void expectKeys(const BuiltInCollection& collection, int amount) {
    ASSERT_EQ(collection.entries().size(), static_cast<std::size_t>(amount));
    for (int number = 0; number < keys; ++number) {
        const ItemPtr item = collection.Item(keyOf(number));
        ASSERT_EQ(item != nullptr, number < amount) << number;
        if (item) {
            ASSERT_EQ(item->Value(), valueOf(number));
        }
    }
}

/// A collection with `amount` keys to which one more is added.
void addStarved(int amount) {
    for (long failing = 1;; ++failing) {
        const long live = liveAllocations();
        bool failed = false;
        {
            BuiltInCollection collection;
            for (int number = 0; number < amount; ++number) collection.Add(keyOf(number), valueOf(number));
            const Text key = keyOf(amount);
            ItemValue value = valueOf(amount);
            failed = runsOut(failing, [&] { collection.Add(key, std::move(value)); });
            // Either the key is added or it is not; nothing else has changed.
            if (failed && collection.entries().size() == static_cast<std::size_t>(amount)) {
                ASSERT_NO_FATAL_FAILURE(expectKeys(collection, amount)) << "allocation " << failing;
                collection.Add(key, valueOf(amount));
            }
            ASSERT_NO_FATAL_FAILURE(expectKeys(collection, amount + 1)) << "allocation " << failing;
        }
        ASSERT_EQ(liveAllocations(), live);
        if (!failed) return;
    }
}

TEST(StarvedCollection, AddsAKeyOrLeavesEverythingAsItWas) {
    for (int amount = 0; amount < keys; ++amount) ASSERT_NO_FATAL_FAILURE(addStarved(amount)) << amount << " keys";
}

TEST(StarvedCollection, FindsItsKeysAgain) {
    BuiltInCollection collection;
    for (int number = 0; number < keys; ++number) collection.Add(keyOf(number), valueOf(number));
    const Text key = keyOf(7);
    long failing = 1;
    while (runsOut(failing, [&] { static_cast<void>(collection.Item(key)); })) ++failing;
    expectKeys(collection, keys);
}

TEST(StarvedCollection, ReplacesAValueOrLeavesEverythingAsItWas) {
    BuiltInCollection collection;
    for (int number = 0; number < keys; ++number) collection.Add(keyOf(number), valueOf(number));
    const Text key = keyOf(7);
    for (long failing = 1;; ++failing) {
        ItemValue value = valueOf(7);
        const bool failed = runsOut(failing, [&] { collection.Add(key, std::move(value)); });
        ASSERT_NO_FATAL_FAILURE(expectKeys(collection, keys));
        if (!failed) break;
    }
}

TEST(StarvedTerminal, CreatesACollectionOrNone) {
    BuiltInTerminal terminal;
    const long live = liveAllocations();
    long failing = 1;
    while (runsOut(failing, [&] { EXPECT_NE(terminal.createCollection(), nullptr); })) ++failing;
    EXPECT_GT(failing, 1);
    EXPECT_EQ(liveAllocations(), live);
}

TEST(StarvedObject, IsCreatedOrNot) {
    BuiltInTerminal terminal;
    for (const ClassRow& row : classTable()) {
        const long live = liveAllocations();
        long failing = 1;
        while (runsOut(failing, [&] { EXPECT_NE(createObject(row, terminal), nullptr); })) ++failing;
        EXPECT_GT(failing, 1) << utf8(row.name);
        EXPECT_EQ(liveAllocations(), live) << utf8(row.name);
    }
}

// The lists of a new object have an empty entry 0, however often reading them failed.
TEST(StarvedObject, ReturnsAListOrNone) {
    BuiltInTerminal terminal;
    for (const TextView name : {u"strPPRText", u"strPPRNumber", u"strPASText", u"strPASNumber"}) {
        for (long failing = 1;; ++failing) {
            const auto object = createObject(*findClass(u"CProfile"), terminal);
            const bool failed = runsOut(failing, [&] { static_cast<void>(object->list(name)); });
            ASSERT_EQ(*object->list(name), TextList{u""}) << utf8(name) << ", allocation " << failing;
            if (!failed) break;
        }
    }
}

// Notes without an end are stored up to the line counter's end, or not at all when memory runs out.
TEST(StarvedObject, StoresAllEndlessNotesOrNone) {
    BuiltInTerminal terminal;
    const ClassRow& row = *findClass(u"CProfileNotes");
    Text endless(80, u' ');
    endless += u"------- PROFILE NOTES";
    endless.resize(160, u' ');
    endless += u"A THE ONE NOTE";
    long failing = 1;
    for (bool failed = true; failed; ++failing) {
        const auto object = createObject(row, terminal);
        const TextList& texts = *object->list(u"strNoteText");
        const TextList& numbers = *object->list(u"strNoteNumber");
        const TextList& qualifiers = *object->list(u"strNoteQualifier");
        try {
            const FailingAllocation armed(failing);
            row.counts[0].call(*object, CountRequest{endless});
        } catch (const std::exception&) {
            // The count's own error, or the memory for that one ran out.
        }
        failed = FailingAllocation::asked() >= failing;
        // Line 1 is the header, line 2 note 1; line 32767 is note 32766.
        const bool isStored = numbers.size() == 32767U;
        ASSERT_TRUE(isStored || numbers.size() <= 2) << numbers.size() << ", allocation " << failing;
        ASSERT_TRUE(isStored || failed) << "allocation " << failing;
        if (!isStored) continue;
        ASSERT_EQ(numbers.back(), u"32766") << "allocation " << failing;
        ASSERT_EQ(texts.size(), 32767U) << "allocation " << failing;
        ASSERT_EQ(qualifiers.size(), 32767U) << "allocation " << failing;
        ASSERT_EQ(texts[1], u"THE ONE NOTE") << "allocation " << failing;
        ASSERT_EQ(texts.back(), u"") << "allocation " << failing;
    }
    EXPECT_GT(failing, 4);
}

TEST(StarvedRows, AreReadCompletelyOrNotAtAll) {
    Text list(80, u' ');
    for (const TextView line : {u"TRAVELLER LIST FOR NCEVN0900", u" ", u"     NAME                   RECLOC  COMPANY",
                                u"   1 ABELMANN/IDA MS        H1J2K3  KESTRELLO TOOLS"}) {
        list += line;
        list.resize((list.size() + 79) / 80 * 80, u' ');
    }
    const long live = liveAllocations();
    long failing = 1;
    while (runsOut(failing, [&] { EXPECT_EQ(readRows(u"CPLTTrans", list).rows.size(), 1U); })) ++failing;
    EXPECT_GT(failing, 3);
    EXPECT_EQ(liveAllocations(), live);
}

TEST(StarvedProfile, IsReadCompletelyOrNotAtAll) {
    long tried = 0;
    for (const char* const sample : {"every_family", "header_pf24", "odd", "wrapped", "minimal"}) {
        const Text display = sampleDisplay(sample);
        const std::string whole = profileText(parseProfile(display));
        for (long failing = 1;; ++failing) {
            const long live = liveAllocations();
            bool failed = false;
            {
                Text copy = display;
                Profile profile;
                failed = runsOut(failing, [&] { profile = parseProfile(std::move(copy)); });
                if (!failed) {
                    ASSERT_EQ(profileText(profile), whole) << sample;
                }
            }
            ASSERT_EQ(liveAllocations(), live) << sample << ", allocation " << failing;
            if (!failed) break;
            ++tried;
        }
        ASSERT_EQ(profileText(parseProfile(display)), whole);
    }
    std::cout << tried << " failing allocations\n";
    EXPECT_GT(tried, 0);
}

}  // namespace
}  // namespace vantro::test
