#include "cli/batch/request.h"

#include "cli/json/collection.h"

#include <gtest/gtest.h>

#include <string>

namespace vantro {

namespace {

// A line and the reader that has read it. The request's texts refer to both.
class RequestTest : public testing::Test {
protected:
    const std::string& problemOf(std::string line) {
        line_ = std::move(line);
        const std::size_t length = line_.size();
        line_.append(jsonPadding, '\0');
        reader_.read(std::span(line_).first(length));
        return reader_.problem();
    }

    Request& requestOf(std::string line) {
        EXPECT_EQ(problemOf(std::move(line)), "");
        return reader_.request();
    }

    std::string idOf(std::string line) {
        problemOf(std::move(line));
        return reader_.id() == nullptr ? "none" : *reader_.id();
    }

    std::string paramsOf(const std::string& params) {
        const Request& request = requestOf(R"({"class":"CPXTrans","call":"CreateCommand","params":)" + params + "}");
        std::string json;
        JsonOut out(json);
        writeCollection(request.params, out);
        return json;
    }

    std::string problemOfParams(const std::string& params) {
        return problemOf(R"({"class":"CPXTrans","call":"CreateCommand","params":)" + params + "}");
    }

    Text screenOf(const std::string& response) {
        return Text(requestOf(R"({"class":"CPXTrans","call":"VerifyResponse","response":)" + response + "}").screen);
    }

    std::string problemOfScreen(const std::string& response) {
        return problemOf(R"({"class":"CPXTrans","call":"VerifyResponse","response":)" + response + "}");
    }

private:
    std::string line_;
    RequestReader reader_;
};

Text padded(Text line) {
    line.resize(80, u' ');
    return line;
}

TEST_F(RequestTest, NamesItsClassAndCall) {
    const Request& request = requestOf(R"({"class":"CPDNTrans","call":"CreateCommand"})");
    EXPECT_EQ(request.row->name, u"CPDNTrans");
    EXPECT_EQ(request.call, Call::CreateCommand);
    EXPECT_EQ(request.params, nullptr);
    EXPECT_EQ(request.object, nullptr);
}

TEST_F(RequestTest, ACountIsACallOfItsClass) {
    const Request& request = requestOf(R"({"class":"CRLPTrans","call":"RecLocCount","response":"x"})");
    EXPECT_EQ(request.call, Call::Count);
    EXPECT_EQ(request.count->name, u"RecLocCount");
    EXPECT_EQ(request.screen, u"x");
}

TEST_F(RequestTest, ValuesOfParamsAreTextsBooleansIntegersAndLists) {
    EXPECT_EQ(paramsOf(R"({"a":"x","b":true,"c":false,"d":-32768,"e":32767,"f":[],"g":["","y"]})"),
              R"({"a":"x","b":true,"c":false,"d":-32768,"e":32767,"f":[],"g":["","y"]})");
    EXPECT_EQ(paramsOf(R"({"zero":-0})"), R"({"zero":0})");
}

TEST_F(RequestTest, NoParamsAndNullAreNoCollection) {
    EXPECT_EQ(requestOf(R"({"class":"CPXTrans","call":"CreateCommand"})").params, nullptr);
    EXPECT_EQ(paramsOf("null"), "null");
    EXPECT_EQ(paramsOf("{}"), "{}");
}

TEST_F(RequestTest, AnythingElseInParamsIsRefusedByItsKey) {
    for (const char* value : {"null", "1.0", "1e2", "0.5", "32768", "-32769", "99999999999999999999", "{}",
                              R"({"x":["y"]})", "[1]", "[null]", R"([["x"]])", R"(["x",{"y":[]}])"}) {
        const std::string problem = problemOfParams(R"({"good":"x","strKey":)" + std::string(value) + R"(,"z":"q"})");
        EXPECT_EQ(problem.rfind("params: \"strKey\": ", 0), 0U) << value << ": " << problem;
    }
}

TEST_F(RequestTest, ParamsThatAreNoObjectAreRefused) {
    for (const char* params : {"1", "\"x\"", "true", "[]", "[{}]"}) {
        EXPECT_EQ(problemOfParams(params), "params: an object of keys and values is expected") << params;
    }
}

TEST_F(RequestTest, ARepeatedKeyOfParamsHasItsLastValueInItsFirstPosition) {
    EXPECT_EQ(paramsOf(R"({"a":"1","b":"2","a":["3"]})"), R"({"a":["3"],"b":"2"})");
    EXPECT_EQ(paramsOf(R"({"a":null,"b":"2","a":"3"})"), R"({"a":"3","b":"2"})");
    EXPECT_NE(problemOfParams(R"({"a":"3","a":null})"), "");
}

TEST_F(RequestTest, ARepeatedMemberHasItsLastValue) {
    EXPECT_EQ(requestOf(R"({"class":5,"call":"CreateCommand","class":"CPXTrans"})").row->name, u"CPXTrans");
    EXPECT_EQ(paramsOf(R"({"a":"1"},"params":{"b":"2"})"), R"({"b":"2"})");
    EXPECT_EQ(screenOf(R"(["a","b"],"response":"c")"), u"c");
    EXPECT_EQ(idOf(R"({"id":[1,2],"id":{"a":"b"}})"), R"({"a":"b"})");
    EXPECT_NE(problemOf(R"({"class":"CPXTrans","call":"CreateCommand","class":null})"), "");
}

TEST_F(RequestTest, AScreenIsOneText) {
    EXPECT_EQ(screenOf(R"("PX3")"), u"PX3");
    EXPECT_EQ(screenOf("\"" + std::string(200, 'x') + "\""), Text(200, u'x'));
    EXPECT_EQ(screenOf(R"("")"), u"");
}

TEST_F(RequestTest, LinesOfAScreenArePaddedTo80ButTheLast) {
    EXPECT_EQ(screenOf(R"(["PX3","","DONE"])"), padded(u"PX3") + padded(u"") + u"DONE");
    EXPECT_EQ(screenOf(R"(["A",""])"), padded(u"A"));
    EXPECT_EQ(screenOf(R"(["A"])"), u"A");
    EXPECT_EQ(screenOf("[]"), u"");
}

TEST_F(RequestTest, ALineOfAScreenHas80CharactersAtMost) {
    const std::string full(80, 'x');
    EXPECT_EQ(screenOf("[\"" + full + "\",\"" + full + "\"]"), Text(160, u'x'));
    EXPECT_EQ(problemOfScreen("[\"A\",\"" + full + "y\",\"B\"]"),
              "response: line 2 has 81 characters, a screen line has 80 at most");
    EXPECT_NE(problemOfScreen("[\"" + full + "y\"]"), "");
}

TEST_F(RequestTest, CharactersOfAScreenLineAreCodeUnits) {
    std::string forty;
    for (int i = 0; i < 40; ++i) forty += "\\ud83d\\ude00";
    EXPECT_EQ(screenOf("[\"" + forty + "\",\"B\"]").size(), 81U);
    EXPECT_NE(problemOfScreen("[\"" + forty + "x\"]"), "");
}

TEST_F(RequestTest, AScreenOfAWrongKindIsRefused) {
    for (const char* response : {"1", "true", "{}", "[1]", "[null]", R"([["x"]])", R"(["x",{}])"}) {
        EXPECT_EQ(problemOfScreen(response), "response: a text or an array of texts is expected") << response;
    }
}

TEST_F(RequestTest, AMissingOrNullScreenIsRefused) {
    EXPECT_EQ(problemOf(R"({"class":"CPXTrans","call":"VerifyResponse"})"), "response: the member is missing");
    EXPECT_EQ(problemOfScreen("null"), "response: a screen is needed, null is none");
    EXPECT_EQ(problemOf(R"({"class":"CRLPTrans","call":"RecLocCount","display":"x"})"),
              "response: the member is missing");
    EXPECT_EQ(problemOf(R"({"class":"CProfile","call":"ProfileElements","response":"x"})"),
              "display: the member is missing");
    EXPECT_EQ(problemOf(R"({"class":"CProfile","call":"PPRElementsCount","display":null})"),
              "display: a screen is needed, null is none");
}

TEST_F(RequestTest, ASelectionIsAListAndAQualifierAText) {
    Request& request = requestOf(
        R"({"class":"CProfile","call":"ProfileElements","display":"x","selection":["a",""],"qualifier":"FQTV"})");
    ASSERT_NE(request.selection, nullptr);
    EXPECT_EQ(*request.selection, (TextList{u"a", u""}));
    EXPECT_EQ(request.qualifier, u"FQTV");
    EXPECT_EQ(requestOf(R"({"class":"CProfile","call":"ProfileElements","display":"x"})").selection, nullptr);
}

TEST_F(RequestTest, ArgumentsOfProfileElementsMustBeOfTheirKind) {
    const std::string call = R"({"class":"CProfile","call":"ProfileElements","display":"x",)";
    for (const char* selection : {"null", "\"RM\"", "[1]", "{}", "[[]]"}) {
        EXPECT_EQ(problemOf(call + R"("selection":)" + selection + "}"), "selection: an array of texts is expected");
    }
    for (const char* qualifier : {"null", "1", "[\"x\"]", "{\"x\":\"y\"}"}) {
        EXPECT_EQ(problemOf(call + R"("qualifier":)" + qualifier + "}"), "qualifier: a text is expected");
    }
}

TEST_F(RequestTest, NotesAreCountedWithTwoTextsThatMayBeAbsent) {
    const std::string call = R"({"class":"CProfileNotes","call":"ProfileNotesElementsCount","display":"x")";
    const Request& filtered = requestOf(call + R"(,"searchString":"a","searchQualifier":"b"})");
    EXPECT_EQ(filtered.searchString, u"a");
    EXPECT_EQ(filtered.searchQualifier, u"b");
    const Request& all = requestOf(call + "}");
    EXPECT_EQ(all.searchString, u"");
    EXPECT_EQ(all.searchQualifier, u"");
    EXPECT_EQ(problemOf(call + R"(,"searchString":1})"), "searchString: a text is expected");
    EXPECT_EQ(problemOf(call + R"(,"searchQualifier":[]})"), "searchQualifier: a text is expected");
}

TEST_F(RequestTest, MembersThatTheCallDoesNotUseAreIgnoredWhateverTheyContain) {
    EXPECT_EQ(problemOf(R"({"class":"CPXTrans","call":"CreateCommand","response":5,"display":{"a":[]},"selection":1,)"
                        R"("qualifier":2,"searchString":3,"searchQualifier":4,"other":{"class":"x","id":[1]}})"),
              "");
    EXPECT_EQ(problemOf(R"({"class":"CRLPTrans","call":"RecLocCount","response":"x","params":7,"display":null})"), "");
    EXPECT_EQ(problemOf(R"({"class":"CProfile","call":"PPRElementsCount","display":"x","searchString":7})"), "");
}

TEST_F(RequestTest, AnObjectIsNamedByAText) {
    EXPECT_EQ(*requestOf(R"({"class":"CPXTrans","call":"CreateCommand","object":"a"})").object, u"a");
    EXPECT_EQ(*requestOf(R"({"class":"CPXTrans","call":"CreateCommand","object":""})").object, u"");
    for (const char* object : {"1", "null", "[]", "{}"}) {
        EXPECT_EQ(problemOf(R"({"class":"CPXTrans","call":"CreateCommand","object":)" + std::string(object) + "}"),
                  "object: a text is expected");
    }
}

TEST_F(RequestTest, AnUnknownClassIsRefused) {
    EXPECT_EQ(problemOf(R"({"class":"CPX","call":"CreateCommand"})"), "no class is named \"CPX\"");
    EXPECT_EQ(problemOf(R"({"class":"cpxtrans","call":"CreateCommand"})"), "no class is named \"cpxtrans\"");
    EXPECT_EQ(problemOf(R"({"call":"CreateCommand"})"), "class: the member is missing");
    EXPECT_EQ(problemOf(R"({"class":["CPXTrans"],"call":"CreateCommand"})"), "class: a text is expected");
}

struct NoSuchCall {
    const char* className;
    const char* call;
};

class ClassWithoutCall : public RequestTest, public testing::WithParamInterface<NoSuchCall> {};

INSTANTIATE_TEST_SUITE_P(
    RequestTest, ClassWithoutCall,
    testing::Values(NoSuchCall{"CProfile", "CreateCommand"}, NoSuchCall{"CProfile", "VerifyResponse"},
                    NoSuchCall{"CPXTrans", "ProfileElements"}, NoSuchCall{"CPXTrans", "RecLocCount"},
                    NoSuchCall{"CProfileNotes", "PPRElementsCount"}, NoSuchCall{"CPXTrans", "createcommand"},
                    NoSuchCall{"CPXTrans", ""}, NoSuchCall{"CPXTrans", "IProfileTrans_CreateCommand"}));

TEST_P(ClassWithoutCall, IsRefused) {
    const std::string className = GetParam().className;
    const std::string call = GetParam().call;
    EXPECT_EQ(problemOf(R"({"class":")" + className + R"(","call":")" + call + R"(","response":"x","display":"x"})"),
              "\"" + className + "\" has no call \"" + call + "\"");
}

TEST_F(RequestTest, ACallIsRequired) {
    EXPECT_EQ(problemOf(R"({"class":"CPXTrans"})"), "call: the member is missing");
    EXPECT_EQ(problemOf(R"({"class":"CPXTrans","call":null})"), "call: a text is expected");
}

TEST_F(RequestTest, ALineThatIsNoObjectIsRefused) {
    for (const char* line : {"[]", "1", "null", "\"x\"", "true", R"([{"class":"CPXTrans","call":"CreateCommand"}])"}) {
        EXPECT_EQ(problemOf(line).rfind("the line is JSON, but not an object", 0), 0U) << line;
        EXPECT_EQ(idOf(line), "none");
    }
    EXPECT_NE(problemOf(""), "");
}

class Id : public RequestTest, public testing::WithParamInterface<const char*> {};

INSTANTIATE_TEST_SUITE_P(RequestTest, Id,
                         testing::Values("7", "-0.50e+10", "123456789012345678901234567890", "null", "true", "false",
                                         "\"\"", "\"a \\\"b\\\" \\\\ \\u0001\"", "\"\xF0\x9F\x98\x80\"", "[]", "{}",
                                         R"([1,[2,{"a":{"a":null},"a":1}],"x"])"));

TEST_P(Id, OfAnyKindIsCopied) { EXPECT_EQ(idOf(R"({"id":)" + std::string(GetParam()) + "}"), GetParam()); }

TEST_F(RequestTest, AnIdIsCopiedFromEveryLineThatIsAnObject) {
    EXPECT_EQ(idOf(R"({"class":5,"params":{"a":[[]]},"id":9})"), "9");
    EXPECT_EQ(idOf(R"({"a":"\ud800","id":9})"), "9");
    EXPECT_EQ(idOf("{\"a\":\"\xFF\",\"id\":9}"), "9");
    EXPECT_EQ(idOf(R"({"\u0069\u0064":9})"), "9");
}

TEST_F(RequestTest, AnIdInsideAnotherMemberIsNotTheRequestsId) {
    EXPECT_EQ(idOf(R"({"params":{"id":1},"x":[{"id":2}]})"), "none");
}

TEST_F(RequestTest, ALineThatIsNoJsonHasNoId) {
    EXPECT_EQ(idOf(R"({"id":9)"), "none");
    EXPECT_EQ(idOf(R"({"id":9,})"), "none");
    EXPECT_EQ(idOf(R"({"id":9} x)"), "none");
}

TEST_F(RequestTest, NothingOfALineAffectsTheNextOne) {
    requestOf(
        R"({"id":1,"class":"CProfile","call":"ProfileElements","display":"x","params":{"a":"b"},"selection":["s"],)"
        R"("qualifier":"q","object":"o"})");
    const Request& next = requestOf(R"({"class":"CProfile","call":"ProfileElements","display":""})");
    EXPECT_EQ(next.screen, u"");
    EXPECT_EQ(next.params, nullptr);
    EXPECT_EQ(next.selection, nullptr);
    EXPECT_EQ(next.qualifier, u"");
    EXPECT_EQ(next.object, nullptr);
    EXPECT_EQ(idOf("{}"), "none");
    EXPECT_EQ(problemOf(R"({"class":"CProfile","call":"ProfileElements"})"), "display: the member is missing");
}

}  // namespace

}  // namespace vantro
