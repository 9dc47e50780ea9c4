// The profile displays of samples/, read by the registered server and compared with samples/expected.
#include "tests/com/remote_object.h"
#include "tests/com/samples.h"
#include "tests/support/exchange_file.h"
#include "tests/support/text.h"
#include "vantro/built_in_terminal.h"
#include "vantro/registry.h"

#include <gtest/gtest.h>
#include <rapidjson/document.h>
#include <rapidjson/istreamwrapper.h>

#include <fstream>
#include <map>

namespace vantro::test {
namespace {

using Json = rapidjson::Value;

// The result keys of an element's fields.
const std::map<std::string, const char16_t*> keys{
    {"text", u"strKeyElement"},    {"number", u"strKeyElementNr"},          {"code", u"strKeyCode"},
    {"airline", u"strKeyAirline"}, {"frequentFlyerNumber", u"strKeyFFNbr"}, {"freeText", u"strKeyFreeText"},
    {"asterisk", u"blnKeyAsterix"}};

// The families of which a query returns one element; of the others it returns lists.
bool isSingle(const std::string& family) {
    for (const char* const single : {"SR", "RM", "AP", "OS", "FFN", "ST", "RC"}) {
        if (family == single) return true;
    }
    return false;
}

ItemValue valueOf(const Json& field) {
    if (field.IsBool()) return field.GetBool();
    return wide({field.GetString(), field.GetStringLength()});
}

using Values = std::map<Text, ItemValue>;

// The fields of an element by their keys. A field that is null has none, and the kind is in no collection.
Values fieldsOf(const Json& element) {
    Values values;
    if (element.IsNull()) return values;
    for (const auto& field : element.GetObject()) {
        const std::string name = field.name.GetString();
        if (!field.value.IsNull() && name != "kind") values.emplace(keys.at(name), valueOf(field.value));
    }
    return values;
}

// One field of every element as a list, with the empty entry that lists begin with.
TextList column(const Json& elements, const char* field) {
    TextList list{u""};
    for (const Json& element : elements.GetArray()) list.push_back(std::get<Text>(valueOf(element[field])));
    return list;
}

class GoldenProfileOfTheServer : public testing::TestWithParam<std::filesystem::path> {
protected:
    void SetUp() override {
        const auto file = samples() / "expected" / GetParam().filename().replace_extension(".json");
        std::ifstream stream(file, std::ios::binary);
        rapidjson::IStreamWrapper text(stream);
        ASSERT_FALSE(expected_.ParseStream(text).HasParseError()) << file;
    }

    const Json& expected(const char* name) const { return expected_[name]; }

    // What a query adds to its request.
    Values query(TextView className, const Entries& request) {
        const auto object = com::newRemoteObject(*findClass(className), terminal_);
        const auto asked = collection(request);
        EXPECT_EQ(object->profileGet()->ProfileElements(display_, asked), nullptr);
        Values added;
        for (const Entry& entry : entriesOf(asked)) added.emplace(entry.key, entry.value);
        for (const Entry& entry : request) added.erase(entry.key);
        return added;
    }
    Values query(const std::string& prefix) { return query(u"CProfile", {{u"strKeyPrefix", wide(prefix)}}); }

    void expectSingles(const std::string& family, const Json& golden) {
        int index = 0;
        for (const Json& element : golden.GetArray()) {
            const Entries request{{u"strKeyPrefix", wide(family)}, {u"intKeyIndex", ++index}};
            EXPECT_EQ(query(u"CProfile", request), fieldsOf(element)) << "at " << index;
        }
        const Entries beyond{{u"strKeyPrefix", wide(family)}, {u"intKeyIndex", index + 1}};
        EXPECT_THROW(query(u"CProfile", beyond), Error);
    }

private:
    Text display_ = displayIn(GetParam());
    BuiltInTerminal terminal_;
    rapidjson::Document expected_;
};

INSTANTIATE_TEST_SUITE_P(, GoldenProfileOfTheServer, testing::ValuesIn(filesIn(samples() / "profiles", ".txt")),
                         [](const auto& file) { return testName(file.param); });

TEST_P(GoldenProfileOfTheServer, HeaderValues) {
    const auto single = [](const Json& text) { return Values{{u"strKeyElement", valueOf(text)}}; };
    EXPECT_EQ(query("NM"), single(expected("name")));
    EXPECT_EQ(query("RECLOC"), single(expected("recordLocator")));
    EXPECT_EQ(query("OFFID"), single(expected("officeIdentifier")));
    EXPECT_EQ(query("PCN"), fieldsOf(expected("companyName")));
    EXPECT_EQ(query("PIN"), fieldsOf(expected("pin")));
    EXPECT_EQ(query("PSL"), fieldsOf(expected("psl")));
}

TEST_P(GoldenProfileOfTheServer, Elements) {
    for (const auto& family : expected("elements").GetObject()) {
        const std::string prefix = family.name.GetString();
        SCOPED_TRACE(prefix);
        if (isSingle(prefix)) {
            expectSingles(prefix, family.value);
        } else {
            EXPECT_EQ(query(prefix), (Values{{u"strKeyElement()", column(family.value, "text")},
                                             {u"strKeyElementNr()", column(family.value, "number")}}));
        }
    }
}

TEST_P(GoldenProfileOfTheServer, Notes) {
    const Json& notes = expected("notes");
    EXPECT_EQ(query(u"CProfileNotes", {{u"strKeyPrefix", u"ProfileNotes"}}),
              (Values{{u"strKeyElement()", column(notes, "text")},
                      {u"strKeyElementNr()", column(notes, "number")},
                      {u"strKeyQualifier()", column(notes, "qualifier")}}));
}

}  // namespace
}  // namespace vantro::test
