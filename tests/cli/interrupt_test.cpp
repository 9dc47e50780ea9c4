// Interrupts at any moment, and a closed output pipe: the output consists of whole records.
#include "tests/cli/process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <string>
#include <thread>
#include <vector>

namespace vantro::test {

namespace {

// One display whose profile is a line of about ten kilobytes: a pipe takes six of them and a part of the next.
std::string longDisplay() {
    std::string display = "PDR/H4T9QZ\n*T*                    H4T9QZ\n------- PROFILE NOTES\n";
    for (int i = 0; i < 150; ++i) display += "A " + std::string(60, static_cast<char>('A' + i % 26)) + "\n";
    return display + "END OF DISPLAY\n>\n";
}

std::string repeated(const std::string& text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i) all += text;
    return all;
}

// Without the sources of displays, in which the records differ.
std::string withoutSources(const std::string& records) {
    std::string rest;
    std::size_t from = 0;
    for (std::size_t at; (at = records.find("\"source\": ", from)) != std::string::npos ||
                         (at = records.find("\"source\":{\"file", from)) != std::string::npos;) {
        rest += records.substr(from, at - from);
        from = std::min(records.find('}', at), records.size());
    }
    return rest + records.substr(from);
}

// Lets the tool write for a while, interrupts it, and expects the record repeated, each time complete.
void expectWholeRecords(const std::vector<std::string>& arguments, const std::string& inputFile,
                        const std::string& record, int round) {
    const int number = round % 2 == 0 ? SIGINT : SIGTERM;
    Running tool(arguments, inputFile);
    std::string out;
    for (int part = 0; part <= round % 7; ++part) out += tool.read(3000 + 700 * static_cast<std::size_t>(round));
    std::this_thread::sleep_for(std::chrono::milliseconds(round % 5));
    tool.signal(number);
    if (round % 3 == 0) tool.signal(number);  // as when it is sent to the process and to its group
    out += tool.readRest();
    EXPECT_EQ(tool.endingSignal(), number) << round;
    out = withoutSources(out);
    ASSERT_EQ(out.size() % record.size(), 0U) << round;
    EXPECT_TRUE(out == repeated(record, static_cast<int>(out.size() / record.size()))) << round;
}

TEST(Interrupt, LeavesNoHalfProfileInAnyForm) {
    const TemporaryFile one(longDisplay());
    const TemporaryFile many(repeated(longDisplay(), 400));
    int round = 0;
    for (const char* threads : {"1", "3"}) {
        for (const char* form : {"--json", "--pretty"}) {
            const std::string record = withoutSources(runTool({"parse", form, one.path()}).out);
            ASSERT_GT(record.size(), 9000U);
            ASSERT_TRUE(record.ends_with("}\n"));
            for (int i = 0; i < 8; ++i) {
                expectWholeRecords({"parse", form, "-j", threads, many.path()}, many.path(), record, round++);
            }
        }
    }
}

TEST(Interrupt, LeavesNoHalfResponse) {
    const std::string name(3000, 'A');
    const std::string request =
        R"({"class":"CPXTrans","call":"CreateCommand","params":{"strKeyItemNr":")" + name + "\"}}\n";
    const TemporaryFile requests(repeated(request, 1000));
    const std::string response = R"({"result":"PX)" + name + "\"}\n";
    for (int round = 0; round < 12; ++round) expectWholeRecords({"batch"}, requests.path(), response, round);
}

TEST(Interrupt, LeavesNoHalfAnswer) {
    const TemporaryFile one(longDisplay());
    const TemporaryFile many(repeated(longDisplay(), 400));
    const std::string answer = runTool({"notes", one.path()}).out;
    ASSERT_GT(answer.size(), 9000U);
    for (int round = 0; round < 6; ++round) expectWholeRecords({"notes", many.path()}, many.path(), answer, round);
}

TEST(Interrupt, EndsAToolThatWaitsForInput) {
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"batch"}, {"parse", "-j", "3"}, {"elements", "PHI"}, {"verify", "CPXTrans"}}) {
        Running tool(arguments);
        std::this_thread::sleep_for(std::chrono::milliseconds(30));
        tool.signal(SIGINT);
        EXPECT_EQ(tool.endingSignal(), SIGINT) << arguments.front();
    }
}

TEST(Interrupt, ThatIsIgnoredStaysIgnored) {
    const auto before = std::signal(SIGINT, SIG_IGN);
    const TemporaryFile many(repeated(longDisplay(), 100));
    Running tool({"parse", many.path()});
    std::signal(SIGINT, before);
    std::string out = tool.read(1000);
    tool.signal(SIGINT);
    out += tool.readRest();
    EXPECT_EQ(tool.endingSignal(), 0);
    EXPECT_EQ(std::ranges::count(out, '\n'), 100);
}

TEST(Interrupt, AClosedOutputPipeEndsTheToolAtOnce) {
    const TemporaryFile many(repeated(longDisplay(), 400));
    for (const char* threads : {"1", "3"}) {
        Running tool({"parse", "-j", threads, many.path()});
        EXPECT_FALSE(tool.read(100).empty());
        tool.closeOutput();
        EXPECT_EQ(tool.endingSignal(), SIGPIPE) << threads;
    }
}

}  // namespace

}  // namespace vantro::test
