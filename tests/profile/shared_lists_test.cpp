// Collections share the lists of the object that answered in them, which reads on.
#include "tests/profile/parser.h"
#include "vantro/registry.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace vantro {
namespace {

/// A family whose queries answer with whole lists.
struct ListedFamily {
    std::string prefix;
    std::string header;
    std::string nextTag;  // of its second element and those below it
};

std::ostream& operator<<(std::ostream& out, const ListedFamily& family) { return out << family.prefix; }

class SharedLists : public testing::TestWithParam<ListedFamily> {
protected:
    std::shared_ptr<BuiltInCollection> query(TextView display) {
        auto collection = std::make_shared<BuiltInCollection>();
        repeat(display, collection);
        return collection;
    }

    void repeat(TextView display, const std::shared_ptr<BuiltInCollection>& collection) {
        collection->Add(u"strKeyPrefix", wide(GetParam().prefix));
        parser_.object().profileGet()->ProfileElements(display, collection);
    }

    /// A display whose elements have these texts.
    static Text displayOf(const Texts& texts) {
        Lines lines{"HEAD", GetParam().header};
        for (const std::string& text : texts) {
            lines.push_back("   1 " + (lines.size() == 2 ? GetParam().prefix + "/" : GetParam().nextTag) + " " + text);
        }
        return ended(lines);
    }

    /// A display that the family's count fails for.
    static Text endlessDisplay() { return display({"HEAD", GetParam().header}); }

    int count(TextView display) { return parser_.count(GetParam().prefix + "ElementsCount", display); }

    /// The texts of the elements, without entry 0.
    static Texts texts(const BuiltInCollection& collection) {
        return withoutEntry0(utf8(std::get<TextList>(collection.Item(u"strKeyElement()")->Value())));
    }
    Texts listed() const { return withoutEntry0(parser_.list(listName())); }
    static std::string listName() { return "str" + GetParam().prefix + "Text"; }

    static std::size_t numbers(const BuiltInCollection& collection) {
        return std::get<TextList>(collection.Item(u"strKeyElementNr()")->Value()).size();
    }

    Parser parser_;

private:
    static Texts withoutEntry0(Texts list) {
        EXPECT_EQ(list.at(0), "");
        list.erase(list.begin());
        return list;
    }
};

const Texts first{"A FIRST TEXT", "B"};
const Texts second{"THE SECOND ONE'S ONLY TEXT"};
const Texts third{"C", "A TEXT OF THE THIRD DISPLAY", "D"};

TEST_P(SharedLists, AnAnswerStaysWhenTheObjectReadsOn) {
    const auto answer = query(displayOf(first));
    const std::size_t numbered = numbers(*answer);
    for (const Texts& next : {second, third, first, third}) {
        EXPECT_EQ(count(displayOf(next)), static_cast<int>(next.size()));
        EXPECT_EQ(listed(), next);
        EXPECT_EQ(texts(*answer), first);
        EXPECT_EQ(numbers(*answer), numbered);
    }
}

TEST_P(SharedLists, EveryAnswerThatIsKeptStays) {
    std::vector<std::shared_ptr<BuiltInCollection>> answers;
    const std::vector<Texts> displays{first, second, third, second, first};
    for (const Texts& next : displays) answers.push_back(query(displayOf(next)));
    for (std::size_t i = 0; i < displays.size(); ++i) EXPECT_EQ(texts(*answers[i]), displays[i]);
    EXPECT_EQ(listed(), first);
}

TEST_P(SharedLists, AnAnswerOutlivesTheObject) {
    std::shared_ptr<BuiltInCollection> answer;
    {
        Parser parser;
        answer = std::make_shared<BuiltInCollection>();
        answer->Add(u"strKeyPrefix", wide(GetParam().prefix));
        const Text display = displayOf(third);
        parser.object().profileGet()->ProfileElements(display, answer);
    }
    EXPECT_EQ(texts(*answer), third);
}

TEST_P(SharedLists, ACollectionThatIsUsedAgainHasTheNewAnswer) {
    const auto answer = std::make_shared<BuiltInCollection>();
    for (const Texts& next : {first, third, second, third}) {
        repeat(displayOf(next), answer);
        EXPECT_EQ(texts(*answer), next);
        EXPECT_EQ(listed(), next);
    }
}

TEST_P(SharedLists, AnAnswerStaysWhenTheNextDisplayHasNoElement) {
    const auto answer = query(displayOf(first));
    EXPECT_EQ(count(displayOf({})), 0);
    EXPECT_EQ(texts(*answer), first);
    EXPECT_EQ(count(displayOf(second)), 1);
    EXPECT_EQ(listed(), second);
    EXPECT_EQ(texts(*answer), first);
}

TEST_P(SharedLists, AnAnswerStaysWhenTheNextCallFails) {
    const auto answer = query(displayOf(first));
    EXPECT_NE(numberRaisedBy([&] { count(endlessDisplay()); }), 0);
    EXPECT_EQ(listed(), Texts{});
    EXPECT_EQ(texts(*answer), first);
}

TEST_P(SharedLists, MemoryIsUsedAgainWhenNoAnswerHasIt) {
    const TextList* const list = parser_.object().list(wide(listName()));
    for (const Texts& next : {first, third, second}) {
        query(displayOf(next));
        EXPECT_EQ(parser_.object().list(wide(listName())), list);
        EXPECT_EQ(listed(), next);
    }
}

INSTANTIATE_TEST_SUITE_P(Families, SharedLists,
                         testing::Values(ListedFamily{"PHI", "------- TRAVEL POLICIES - HOTEL", "PHI/"},
                                         ListedFamily{"PPR", "------- PRIORITY", "PPR/"},
                                         ListedFamily{"PAS", "------- DOCUMENTS", "    "}),
                         [](const auto& test) { return test.param.prefix; });

}  // namespace
}  // namespace vantro
