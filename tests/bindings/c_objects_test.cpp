// The classes through the C interface: every sample exchange, and what a caller can do wrong.
#include "tests/bindings/c_values.h"
#include "tests/support/exchange_file.h"
#include "tests/support/text.h"
#include "vantro/registry.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>

namespace vantro::test {
namespace {

/// Runs the steps of one exchange, with one object per class.
class CPlayer {
public:
    void play(const ExchangeStep& step) {
        SCOPED_TRACE("step on line " + std::to_string(step.line));
        Owned<vantro_object>& object = objects_[step.className];
        if (!object) object = cObject(step.className);
        std::vector<int> reported;
        Owned<vantro_collection> params = step.params ? cCollection(entriesOf(*step.params)) : nullptr;
        if (step.command || step.commandRaises) {
            checkCommand(step, *object, params.get());
            addReported(*object, reported);
        }
        if (step.screen) {
            if (step.count) checkCount(step, *object, reported);
            checkScreen(step, *object, std::move(params));
            addReported(*object, reported);
        }
        EXPECT_EQ(reported, step.reported);
    }

private:
    static void addReported(const vantro_object& object, std::vector<int>& numbers) {
        for (std::size_t index = 0; index < vantro_reported_count(&object); ++index) {
            numbers.push_back(vantro_reported_number(&object, index));
        }
    }

    static void checkCommand(const ExchangeStep& step, vantro_object& object, const vantro_collection* params) {
        vantro_string* made = nullptr;
        EXPECT_EQ(vantro_create_command(&object, params, &made), step.commandRaises.value_or(0));
        const Owned<vantro_string> command(made);
        ASSERT_EQ(command != nullptr, step.command.has_value());
        EXPECT_EQ(viewed(vantro_string_view(made)), step.command.value_or(Text()));
    }

    static void checkCount(const ExchangeStep& step, vantro_object& object, std::vector<int>& reported) {
        std::int16_t count = -1;
        EXPECT_EQ(vantro_count(&object, vantro_utf8("RecLocCount"), argument(*step.screen), {}, {}, &count), 0);
        EXPECT_EQ(count, *step.count);
        addReported(object, reported);
    }

    void checkScreen(const ExchangeStep& step, vantro_object& object, Owned<vantro_collection> params) {
        using Kind = ExchangeResults::Kind;
        vantro_collection* const state = step.statePrevious ? previous_.get() : params.get();
        vantro_collection* made = nullptr;
        const int expected = step.results->kind == Kind::Raised ? step.results->raised : 0;
        EXPECT_EQ(vantro_verify_response(&object, argument(*step.screen), state, &made), expected);
        Owned<vantro_collection> results(made);
        ASSERT_EQ(results != nullptr, step.results->kind == Kind::Collection);
        if (!results) return;
        EXPECT_EQ(entriesOf(made), entriesOf(step.results->entries));
        previous_ = std::move(results);
    }

    std::map<Text, Owned<vantro_object>> objects_;
    Owned<vantro_collection> previous_;
};

TEST(CObjects, AnswerEverySampleExchange) {
    const auto files = filesIn(std::filesystem::path(VANTRO_SOURCE_DIR) / "samples" / "exchanges", ".exchange");
    ASSERT_FALSE(files.empty());
    for (const auto& file : files) {
        SCOPED_TRACE(file.string());
        CPlayer player;
        for (const ExchangeStep& step : readExchange(file)) player.play(step);
    }
}

TEST(CObjects, ExistForEveryClass) {
    ASSERT_EQ(vantro_class_count(), classTable().size());
    for (std::size_t index = 0; index < vantro_class_count(); ++index) {
        EXPECT_EQ(viewed(vantro_class_name(index)), classTable()[index].name);
        EXPECT_NE(cObject(classTable()[index].name), nullptr);
    }
    EXPECT_EQ(vantro_class_name(vantro_class_count()).size, 0U);
}

TEST(CObjects, AnUnknownClassIsAnErrorWithItsName) {
    vantro_object* object = nullptr;
    EXPECT_EQ(vantro_object_new(vantro_utf8("CPDNTran"), &object), 429);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(vantro_error_number(), 429);
    EXPECT_NE(std::string(vantro_error_description()).find("CPDNTran"), std::string::npos);
}

// It is cut between two characters.
TEST(CObjects, TheDescriptionOfALongNameIsUtf8) {
    for (const std::size_t shift : {0U, 1U}) {
        std::string name(shift, 'X');
        for (int count = 0; count < 600; ++count) name += "\u00E9";
        vantro_object* object = nullptr;
        EXPECT_EQ(vantro_object_new(vantro_utf8(name.c_str()), &object), 429);
        const std::string description = vantro_error_description();
        EXPECT_GE(description.size(), 510U);
        EXPECT_EQ(description.find("\xC3\xA9", description.size() - 2), description.size() - 2);
    }
}

TEST(CObjects, AMissingOperationIsAnError) {
    const Owned<vantro_object> parser = cObject(u"CProfile");
    const Owned<vantro_object> search = cObject(u"CPDNTrans");
    const Owned<vantro_collection> request = cCollection({{u"strKeyPrefix", u"PHI"}});
    vantro_string* command = nullptr;
    vantro_collection* results = nullptr;
    std::int16_t count = 1;
    EXPECT_EQ(vantro_create_command(parser.get(), nullptr, &command), 438);
    EXPECT_EQ(vantro_verify_response(parser.get(), vantro_utf8("PM"), nullptr, &results), 438);
    EXPECT_EQ(vantro_profile_elements(search.get(), vantro_utf8("PM"), request.get(), nullptr, 0, {}, nullptr), 438);
    EXPECT_EQ(vantro_count(parser.get(), vantro_utf8("PHICount"), vantro_utf8(""), {}, {}, &count), 438);
    EXPECT_EQ(count, 0);
}

TEST(CObjects, ReadAFamilyAndItsLists) {
    const Text display =
        Text(u"------- PRIORITY").append(Text(64, u' ')).append(u"   1 PPR/ AISLE").append(Text(65, u' ')).append(u">");
    const Owned<vantro_object> parser = cObject(u"CProfile");
    const Owned<vantro_collection> request = cCollection({{u"strKeyPrefix", u"PPR"}});
    std::int32_t isKnown = -1;
    ASSERT_EQ(vantro_profile_elements(parser.get(), argument(display), request.get(), nullptr, 0, {}, &isKnown), 0);
    EXPECT_EQ(isKnown, 1);
    const auto entry = vantro_collection_find(request.get(), vantro_utf8("strKeyElement()"));
    ASSERT_GE(entry, 0);
    EXPECT_EQ(viewed(vantro_collection_list_entry(request.get(), static_cast<std::size_t>(entry), 1)), u"AISLE");

    std::int16_t count = 0;
    ASSERT_EQ(vantro_count(parser.get(), vantro_utf8("PPRElementsCount"), argument(display), {}, {}, &count), 0);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(vantro_list_size(parser.get(), vantro_utf8("strPPRText")), 2U);
    EXPECT_EQ(viewed(vantro_list_entry(parser.get(), vantro_utf8("strPPRText"), 1)), u"AISLE");
    EXPECT_EQ(vantro_list_size(parser.get(), vantro_utf8("strText")), 0U);
    EXPECT_EQ(vantro_list_entry(parser.get(), vantro_utf8("strPPRText"), 2).size, 0U);
}

TEST(CObjects, SayThatAPrefixIsUnknown) {
    const Owned<vantro_object> parser = cObject(u"CProfile");
    const Owned<vantro_collection> request = cCollection({{u"strKeyPrefix", u"XXX"}});
    std::int32_t isKnown = -1;
    EXPECT_EQ(vantro_profile_elements(parser.get(), vantro_utf8(">"), request.get(), nullptr, 0, {}, &isKnown), 0);
    EXPECT_EQ(isKnown, 0);
}

// A selection restricts the transferable elements: number 2 is a contact.
TEST(CObjects, PassASelection) {
    Text display;
    for (const TextView line :
         {u"------- PNR TRANSFERABLE DATA", u"S      1     RM  WINDOW", u"S      2     AP  555-0101", u">"}) {
        display.append(line).resize((display.size() + 79) / 80 * 80, u' ');
    }
    const Owned<vantro_object> parser = cObject(u"CProfile");
    const Owned<vantro_collection> request = cCollection({{u"strKeyPrefix", u"ALL"}});
    const vantro_text selection[] = {vantro_utf8("ap")};
    ASSERT_EQ(vantro_profile_elements(parser.get(), argument(display), request.get(), selection, 1, {}, nullptr), 0);
    EXPECT_EQ(entriesOf(request.get()).back().value, ItemValue(TextList{u"", u"2"}));
}

TEST(CCollections, ReadAnotherKindAsNothing) {
    const Owned<vantro_collection> collection =
        cCollection({{u"a", true}, {u"b", 7}, {u"c", u"text"}, {u"d", TextList{u"x"}}});
    EXPECT_EQ(vantro_collection_text(collection.get(), 0).size, 0U);
    EXPECT_EQ(vantro_collection_boolean(collection.get(), 1), 0);
    EXPECT_EQ(vantro_collection_integer(collection.get(), 2), 0);
    EXPECT_EQ(vantro_collection_list_size(collection.get(), 2), 0U);
    EXPECT_EQ(vantro_collection_kind(collection.get(), 4), VANTRO_KIND_NONE);
    EXPECT_EQ(vantro_collection_key(collection.get(), 4).size, 0U);
    EXPECT_EQ(vantro_collection_find(collection.get(), vantro_utf8("A")), -1);
    EXPECT_EQ(vantro_collection_find(collection.get(), vantro_utf8("d")), 3);
}

TEST(CHandles, MayBeNull) {
    vantro_string_free(nullptr);
    vantro_profile_free(nullptr);
    vantro_collection_free(nullptr);
    vantro_object_free(nullptr);
    EXPECT_EQ(vantro_string_view(nullptr).size, 0U);
    EXPECT_EQ(vantro_collection_size(nullptr), 0U);
    EXPECT_EQ(vantro_collection_find(nullptr, {}), -1);
    EXPECT_EQ(vantro_collection_kind(nullptr, 0), VANTRO_KIND_NONE);
    EXPECT_EQ(vantro_note_count(nullptr), 0U);
    EXPECT_EQ(vantro_element_count(nullptr, 0), 0U);
    EXPECT_EQ(vantro_profile_value(nullptr, VANTRO_NAME).size, 0U);
    EXPECT_EQ(vantro_reported_count(nullptr), 0U);
    EXPECT_EQ(vantro_list_size(nullptr, {}), 0U);
}

}  // namespace
}  // namespace vantro::test
