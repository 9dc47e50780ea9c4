// A selection that is made on demand: which queries read it, and in which order.
#include "tests/profile/parser.h"
#include "vantro/interfaces.h"

#include <gtest/gtest.h>

namespace vantro {
namespace {

// Records the calls; its second entry fails when `failing` is set.
class WatchedSource final : public SelectionSource {
public:
    std::size_t size() override {
        asked.emplace_back("size");
        return entries.size();
    }
    Text entry(std::size_t index) override {
        asked.push_back("entry " + std::to_string(index));
        if (failing && index == 1) fail(Failure::TypeMismatch);
        return entries[index];
    }
    void store(std::size_t index, const Text& changed) override {
        asked.push_back("store " + std::to_string(index));
        entries[index] = changed;
    }
    TextView qualifier() override {
        asked.emplace_back("qualifier");
        return u"RM";
    }

    TextList entries{u"s  rm", u"ap"};
    bool failing = false;
    Texts asked;
};

const Text shown = display({"PDR/KQ4R7T", "*T* MARTEN/LOVIS MRS", "------- PNR TRANSFERABLE DATA",
                            "S     12     RM WINDOW SEAT", "------- DOCUMENTS", "END OF DISPLAY"});

class SelectionSources : public testing::Test {
protected:
    int raised(TextView prefix) {
        request_->Add(u"strKeyPrefix", ItemValue(Text(prefix)));
        return numberRaisedBy([&] { object_->profileGet()->ProfileElements(shown, request_, source_); });
    }

    BuiltInTerminal terminal_;
    CollectionPtr request_ = terminal_.createCollection();
    std::unique_ptr<ProfileObject> object_ = createObject(*findClass(u"CProfile"), terminal_);
    WatchedSource source_;
};

TEST_F(SelectionSources, AreWalkedEntryByEntryBeforeTheQualifier) {
    EXPECT_EQ(raised(u"ALL"), 0);
    EXPECT_EQ(source_.asked, (Texts{"size", "entry 0", "store 0", "entry 1", "store 1", "qualifier"}));
    EXPECT_EQ(source_.entries, (TextList{u"RM", u"AP"}));
    EXPECT_EQ(written(request_->Item(u"strKeyElNbrsArray")->Value()), "['', '12']");
}

TEST_F(SelectionSources, FailInTheMiddleOfTheWalk) {
    source_.failing = true;
    EXPECT_EQ(raised(u"ALL"), 13);
    EXPECT_EQ(source_.asked, (Texts{"size", "entry 0", "store 0", "entry 1"}));
    EXPECT_EQ(source_.entries, (TextList{u"RM", u"ap"}));
    EXPECT_FALSE(request_->Item(u"strKeyElNbrsArray"));
}

TEST_F(SelectionSources, AreNotReadForAnyOtherPrefix) {
    for (const TextView prefix : {u"NM", u"RECLOC", u"PPA", u"PPR", u"ALL ", u"XYZ"}) raised(prefix);
    EXPECT_EQ(raised(u""), 5065);
    EXPECT_EQ(numberRaisedBy([&] { object_->profileGet()->ProfileElements(shown, nullptr, source_); }), 91);
    const auto notes = createObject(*findClass(u"CProfileNotes"), terminal_);
    request_->Add(u"strKeyPrefix", ItemValue(Text(u"ALL")));
    EXPECT_EQ(notes->profileGet()->ProfileElements(shown, request_, source_), request_);
    EXPECT_EQ(source_.asked, Texts{});
}

TEST(FlagLists, AreFoundByTheirName) {
    BuiltInTerminal terminal;
    const auto object = createObject(*findClass(u"CProfile"), terminal);
    const Text requests = display({"PDR/KQ4R7T", "------- PNR TRANSFERABLE DATA", "S      3     SR VGML",
                                   "S      4     SR WCHR", "END OF DISPLAY"});
    const auto count = findCount(*findClass(u"CProfile"), u"ServiceRequestElementsCount")->call(*object, {requests});
    ASSERT_NE(object->flagList(u"blnServiceRequestFlag"), nullptr);
    EXPECT_EQ(*object->flagList(u"blnServiceRequestFlag"), FlagList(static_cast<std::size_t>(count), false));
    EXPECT_EQ(count, 2);
    EXPECT_EQ(object->flagList(u"strServiceRequestText"), nullptr);
    EXPECT_EQ(createObject(*findClass(u"CPXTrans"), terminal)->flagList(u"blnServiceRequestFlag"), nullptr);
}

}  // namespace
}  // namespace vantro
