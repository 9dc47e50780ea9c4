#include "cli/batch/response.h"
#include "cli/batch/session.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <string>

namespace vantro {

namespace {

// A class whose results name the instance, and which fails on request.
class Numbered final : public ProfileObject, private IProfileTrans {
public:
    explicit Numbered(int number) : number_(number) {}
    IProfileTrans* profileTrans() override { return this; }

private:
    Text IProfileTrans_CreateCommand(const CollectionPtr& params) override {
        if (params && params->Item(u"memory")) throw std::bad_alloc();
        if (params && params->Item(u"unexpected")) throw std::runtime_error("out of paper");
        ++calls_;
        const std::string text = std::to_string(number_) + ":" + std::to_string(calls_);
        return {text.begin(), text.end()};
    }

    int number_;
    int calls_ = 0;
};

class NumberingBackend final : public Backend {
public:
    std::unique_ptr<ProfileObject> create(const ClassRow& /*row*/, Terminal& /*terminal*/) override {
        if (refuses) fail(Failure::CannotCreateObject);
        return std::make_unique<Numbered>(++created_);
    }
    std::int16_t count(ProfileObject& /*object*/, const CountProperty& /*property*/,
                       const CountRequest& request) override {
        return static_cast<std::int16_t>(request.text.size());
    }

    bool refuses = false;

private:
    int created_ = 0;
};

class SessionTest : public testing::Test {
protected:
    std::string answer(std::string line) {
        const std::size_t length = line.size();
        line.append(jsonPadding, '\0');
        reader_.read(std::span(line).first(length));
        EXPECT_EQ(reader_.problem(), "");
        std::string out;
        appendResponse(reader_.request(), session_.call(reader_.request()), reader_.id(), out);
        return out;
    }

    NumberingBackend backend_;

private:
    RequestReader reader_;
    Session session_{backend_};
};

TEST_F(SessionTest, WithoutANameEachLineGetsAFreshInstance) {
    const std::string line = R"({"class":"CPXTrans","call":"CreateCommand"})";
    EXPECT_EQ(answer(line), "{\"result\":\"1:1\"}\n");
    EXPECT_EQ(answer(line), "{\"result\":\"2:1\"}\n");
}

TEST_F(SessionTest, ANamedInstanceIsReusedForItsClassAndName) {
    const std::string named = R"({"class":"CPXTrans","call":"CreateCommand","object":"a"})";
    EXPECT_EQ(answer(named), "{\"result\":\"1:1\"}\n");
    EXPECT_EQ(answer(named), "{\"result\":\"1:2\"}\n");
    EXPECT_EQ(answer(R"({"class":"CPXTrans","call":"CreateCommand","object":""})"), "{\"result\":\"2:1\"}\n");
    EXPECT_EQ(answer(R"({"class":"CPDTrans","call":"CreateCommand","object":"a"})"), "{\"result\":\"3:1\"}\n");
    EXPECT_EQ(answer(R"({"class":"CPXTrans","call":"CreateCommand"})"), "{\"result\":\"4:1\"}\n");
    EXPECT_EQ(answer(named), "{\"result\":\"1:3\"}\n");
}

TEST_F(SessionTest, ANamedInstanceOutlivesAFailedCall) {
    const std::string named = R"({"class":"CPXTrans","call":"CreateCommand","object":"a"})";
    answer(named);
    answer(R"({"class":"CPXTrans","call":"CreateCommand","object":"a","params":{"unexpected":true}})");
    EXPECT_EQ(answer(named), "{\"result\":\"1:2\"}\n");
}

TEST_F(SessionTest, AClassThatCannotBeCreatedRaises429) {
    backend_.refuses = true;
    EXPECT_EQ(answer(R"({"id":1,"class":"CPXTrans","call":"CreateCommand","object":"a"})"),
              R"({"id":1,"error":{"number":429,"source":"VantroProfileUtils",)"
              R"("description":"This class cannot be created"}})"
              "\n");
    backend_.refuses = false;
    EXPECT_EQ(answer(R"({"class":"CPXTrans","call":"CreateCommand","object":"a"})"), "{\"result\":\"1:1\"}\n");
}

TEST_F(SessionTest, AnUnexpectedFailureIsAnErrorOfItsLine) {
    EXPECT_EQ(answer(R"({"class":"CPXTrans","call":"CreateCommand","params":{"memory":true}})"),
              R"({"error":{"number":7,"source":"VantroProfileUtils","description":"Out of memory"}})"
              "\n");
    EXPECT_EQ(answer(R"({"class":"CPXTrans","call":"CreateCommand","params":{"unexpected":true}})"),
              R"({"error":{"number":51,"source":"VantroProfileUtils","description":"out of paper"}})"
              "\n");
}

TEST_F(SessionTest, ACountGoesThroughTheBackend) {
    EXPECT_EQ(answer(R"({"class":"CRLPTrans","call":"RecLocCount","response":"four"})"), "{\"result\":4}\n");
}

}  // namespace

}  // namespace vantro
