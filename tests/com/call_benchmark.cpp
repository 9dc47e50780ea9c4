// What a late-bound call costs: the operation on the server's object, against the calls that it makes on the terminal,
// made directly, plus the same operation of the linked library. The three take turns in short passes, and the best pass
// of each counts. It asserts nothing about times. `--json FILE` writes the table to a file.
#include "tests/com/client.h"
#include "tests/com/terminal_calls.h"
#include "tests/support/screens.h"
#include "tests/support/text.h"
#include "vantro/registry.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <functional>
#include <limits>

namespace {

using namespace vantro;
using namespace vantro::test;
using Clock = std::chrono::steady_clock;

/// One operation: of these parts those that its kind uses.
struct Task {
    enum class Kind { CreateCommand, VerifyResponse, ProfileElements };

    const char* name;
    const char16_t* className;
    Kind kind;
    Text screen;
    Entries passed;
    bool passesCollection;
};

Text listScreen(TextView echo, TextView title, TextView header, TextView entry) {
    constexpr int entries = 19;
    Text text = screen({echo, title, u"", header});
    for (int number = 1; number <= entries; ++number) {
        Text line = wide(std::to_string(number));
        line.insert(0, 4 - line.size(), u' ');
        text += screen({line.append(entry)});
    }
    return text + screen({u">"});
}

// 200 lines. The family that is asked for is in the section before the last.
Text display() {
    Text text =
        screen({u"PDR/KQ4R7T", u"*T* TRAVELLER PROFILE                                                     KQ4R7T",
                u"----- ACTIVE   OFFICE                                  NCEVN0900", u"   1 NM  SMITH/ANNA MS",
                u"------- PNR TRANSFERABLE DATA"});
    for (int line = 0; line < 140; ++line) text += screen({u"S      5     RM  ORCHARD TICKET MARBLE"});
    text += screen({u"------- PRIORITY"});
    for (int line = 0; line < 10; ++line) text += screen({u"   6 PPR/ ALWAYS OFFER AN AISLE SEAT"});
    text += screen({u"------- TRAVEL POLICIES - HOTEL"});
    for (int line = 0; line < 20; ++line) text += screen({u"   7 PHI/ RATE CEILING 120 EUR IN LYON"});
    text += screen({u"------- PROFILE NOTES"});
    for (int line = 0; line < 21; ++line) text += screen({u"A COPPER PENCIL CANDLE"});
    return text + screen({u"END OF DISPLAY"});
}

std::vector<Task> tasks() {
    using Kind = Task::Kind;
    return {
        {"CreateCommand",
         u"CPDNTrans",
         Kind::CreateCommand,
         {},
         {{u"strKeyName", u"SMITH/ANNA"},
          {u"strKeyCompany", u"KESTRELLO"},
          {u"blnKeyExactMatch", true},
          {u"strKeyOfficeID", u"NCEVN0900"}},
         true},
        {"VerifyResponse of a list",
         u"CPDNTrans",
         Kind::VerifyResponse,
         listScreen(u"PDN/KES", u"SIMILAR COMPANY NAME LIST", u"     COMPANY                         RECLOC     OFFICE",
                    u" KESTRELLO TOOLS                 Q2W3E4     NCEVN0900"),
         {},
         false},
        {"VerifyResponse of a traveller list",
         u"CPLTTrans",
         Kind::VerifyResponse,
         listScreen(u"PLT/NCEVN0900", u"TRAVELLER LIST FOR NCEVN0900", u"     NAME                   RECLOC  COMPANY",
                    u" ABELMANN/IDA MS        H1J2K3"),
         {},
         false},
        {"ProfileElements of a 200-line display",
         u"CProfile",
         Kind::ProfileElements,
         display(),
         {{u"strKeyPrefix", u"PHI"}},
         true},
    };
}

/// The operation of the linked library, with this terminal.
class Linked {
public:
    Linked(const Task& task, Terminal& terminal) : task_(task), object_(createObject(task.className, terminal)) {}

    void call(const CollectionPtr& passed) {
        switch (task_.kind) {
            case Task::Kind::CreateCommand: object_->profileTrans()->CreateCommand(passed); break;
            case Task::Kind::VerifyResponse: object_->profileTrans()->VerifyResponse(task_.screen, passed); break;
            case Task::Kind::ProfileElements: object_->profileGet()->ProfileElements(task_.screen, passed); break;
        }
    }

private:
    const Task& task_;
    std::unique_ptr<ProfileObject> object_;
};

/// The operation of the server's object, late bound with the id looked up before.
class Served {
public:
    Served(const Task& task, Ptr<IDispatch> passed)
        : passed_(std::move(passed)),
          text_(task.screen),
          object_(newServerObject<IDispatch>(task.className, IID_IDispatch)) {
        const char16_t* const names[] = {u"CreateCommand", u"VerifyResponse", u"ProfileElements"};
        auto* name = const_cast<OLECHAR*>(com::characters(names[static_cast<int>(task.kind)]));
        com::check(object_->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_SYSTEM_DEFAULT, &id_));
        lastFirst_ = {passed_ ? argument(passed_.get()) : noArgument()};
        if (task.kind == Task::Kind::CreateCommand) return;
        lastFirst_.push_back(com::borrowed(text_.get()));
    }

    void call() {
        DISPPARAMS parameters{lastFirst_.data(), nullptr, static_cast<UINT>(lastFirst_.size()), 0};
        Variant result;
        com::check(object_->Invoke(id_, IID_NULL, LOCALE_SYSTEM_DEFAULT, DISPATCH_METHOD, &parameters, result.pointer(),
                                   nullptr, nullptr));
    }

private:
    Ptr<IDispatch> passed_;
    Bstr text_;
    Ptr<IDispatch> object_;
    DISPID id_ = DISPID_UNKNOWN;
    std::vector<VARIANT> lastFirst_;
};

/// One of the three, and the best of its passes.
class Contender {
public:
    explicit Contender(std::function<void()> call) : call_(std::move(call)) {
        call_();
        while (seconds() < shortest) rounds_ *= 2;
    }

    void pass() { best_ = std::min(best_, seconds() / rounds_); }
    double nanoseconds() const { return best_ * 1e9; }

private:
    static constexpr double shortest = 0.002;

    double seconds() const {
        const auto start = Clock::now();
        for (int round = 0; round < rounds_; ++round) call_();
        return std::chrono::duration<double>(Clock::now() - start).count();
    }

    std::function<void()> call_;
    int rounds_ = 1;
    double best_ = std::numeric_limits<double>::max();
};

struct Measured {
    const char* task;
    std::size_t calls;
    double ours;
    double terminal;
    double native;

    double ratio() const { return ours / (terminal + native); }
};

Ptr<IDispatch> passedTo(const Task& task) {
    return task.passesCollection ? terminalCollection(task.passed).as<IDispatch>(IID_IDispatch) : nullptr;
}

std::shared_ptr<BuiltInCollection> passedNatively(const Task& task) {
    return task.passesCollection ? collection(task.passed) : nullptr;
}

TerminalCalls callsOf(const Task& task) {
    CallRecorder recorder;
    Linked(task, recorder).call(recorder.passed(passedNatively(task)));
    return recorder.calls();
}

/// The number of calls that the terminal counts.
long counted(const std::function<void()>& call) {
    const auto control = standIn();
    LONG calls = 0;
    call();  // creates what is created only once
    control->Reset();
    call();
    control->get_CallCount(&calls);
    return calls;
}

Measured measure(const Task& task) {
    constexpr int passes = 150;
    Served served(task, passedTo(task));
    DirectCalls direct(callsOf(task), passedTo(task));
    BuiltInTerminal terminal;
    Linked linked(task, terminal);
    const CollectionPtr passed = passedNatively(task);
    if (counted([&] { served.call(); }) != counted([&] { direct.make(); })) {
        throw std::runtime_error(std::string(task.name) + ": the recorded calls are not those of the server");
    }
    Contender contenders[] = {Contender([&] { served.call(); }), Contender([&] { direct.make(); }),
                              Contender([&] { linked.call(passed); })};
    for (int pass = 0; pass < passes; ++pass) {
        for (Contender& contender : contenders) contender.pass();
    }
    return {task.name, direct.size(), contenders[0].nanoseconds(), contenders[1].nanoseconds(),
            contenders[2].nanoseconds()};
}

void print(const std::vector<Measured>& table) {
    std::printf("late-bound %-38s %6s %10s %12s %10s %6s\n", "operation", "calls", "ours, ns", "terminal, ns",
                "native, ns", "ratio");
    for (const Measured& row : table) {
        std::printf("late-bound %-38s %6u %10.0f %12.0f %10.0f %6.2f\n", row.task, static_cast<unsigned>(row.calls),
                    row.ours, row.terminal, row.native, row.ratio());
    }
}

void write(const std::vector<Measured>& table, const char* file) {
    std::ofstream out(file, std::ios::binary);
    const char* separator = "";
    out << "{\"com\":[";
    for (const Measured& row : table) {
        out << std::exchange(separator, ",") << "{\"task\":\"" << row.task << "\",\"calls\":" << row.calls
            << ",\"ours_ns\":" << row.ours << ",\"terminal_ns\":" << row.terminal << ",\"native_ns\":" << row.native
            << '}';
    }
    out << "]}\n";
    if (!out.flush()) throw std::runtime_error(std::string("cannot write ") + file);
}

void run(const char* file) {
    std::vector<Measured> table;
    for (const Task& task : tasks()) table.push_back(measure(task));
    print(table);
    if (file != nullptr) write(table, file);
}

}  // namespace

int main(int count, char** arguments) {
    const bool writes = count == 3 && std::strcmp(arguments[1], "--json") == 0;
    if (count != 1 && !writes) return std::fprintf(stderr, "usage: vantro_com_benchmark [--json FILE]\n"), 2;
    CoInitialize(nullptr);
    int status = 0;
    try {
        run(writes ? arguments[2] : nullptr);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        status = 1;
    }
    CoUninitialize();
    return status;
}
