// Uses an installed library across its border: exceptions that the library raises are caught here by their type,
// objects that it makes are cast here, and it calls objects that are made here.
#include "vantro/built_in_terminal.h"
#include "vantro/list_rows.h"
#include "vantro/lists.h"
#include "vantro/profile.h"
#include "vantro/registry.h"
#include "vantro/screen_lines.h"

#include <cstdio>
#include <stdexcept>
#include <string>

namespace {

int failures = 0;

void expect(bool condition, const char* what) {
    if (!condition) {
        std::printf("wrong: %s\n", what);
        ++failures;
    }
}

// Fails whatever the library asks of it.
class FailingCollection final : public vantro::KeyedCollection {
public:
    void Add(vantro::TextView, vantro::ItemValue) override {}
    vantro::ItemPtr Item(vantro::TextView) const override { throw std::runtime_error("no answer"); }
};

int numberOfErrorFromUnknownClass(vantro::Terminal& terminal) {
    try {
        vantro::createObject(u"CUnknownTrans", terminal);
    } catch (const vantro::Error& error) {
        return error.number();
    }
    return 0;
}

bool createsEveryClass(vantro::Terminal& terminal) {
    for (const vantro::ClassRow& row : vantro::classTable()) {
        const auto object = vantro::createObject(row, terminal);
        if (vantro::findClass(row.name) != &row) {
            return false;
        }
        if ((object->profileTrans() != nullptr) != row.hasProfileTrans) {
            return false;
        }
        for (const vantro::CountProperty& count : row.counts) {
            if (vantro::findCount(row, count.name) != &count) {
                return false;
            }
        }
    }
    return true;
}

int numberOfErrorFromFailingCollection(vantro::Terminal& terminal) {
    const auto transaction = vantro::createObject(u"CPDTrans", terminal);
    try {
        transaction->profileTrans()->CreateCommand(std::make_shared<FailingCollection>());
    } catch (const vantro::Error& error) {
        return error.number();
    }
    return 0;
}

}  // namespace

int main() {
    vantro::BuiltInTerminal terminal;
    vantro::Terminal& base = terminal;
    expect(numberOfErrorFromUnknownClass(base) == 429, "the error of an unknown class");
    expect(createsEveryClass(base), "the class table");
    expect(numberOfErrorFromFailingCollection(base) == 5000, "the error of a failing collection");
    expect(dynamic_cast<vantro::BuiltInCollection*>(base.createCollection().get()) != nullptr, "cast of a collection");
    expect(dynamic_cast<vantro::BuiltInTerminal*>(&base) != nullptr, "cast of a terminal");
    expect(vantro::parseProfile(u"").elements(vantro::Family::PPR).empty(), "an empty display");
    expect(!vantro::parseProfile(u"").isShown(vantro::Family::PPR), "a section that is not shown");
    expect(vantro::joinLines(u"A\nB\n").screen.size() == 81, "a screen of two lines");
    expect(!vantro::readRows(u"CPLTTrans", u"PLT").isList, "a screen without a list");
    expect(!vantro::findClass(u"CPLTTrans")->description.columns.empty(), "the columns of a list");
    expect(vantro::familyNames().size() == vantro::familyCount, "the families");
    expect(vantro::errorOf(vantro::Failure::Overflow).number() == 6, "the error of a failing step");
    if (failures == 0) {
        std::puts("all right");
    }
    return failures;
}
