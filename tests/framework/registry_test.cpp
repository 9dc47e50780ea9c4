#include "vantro/registry.h"

#include "tests/framework/raised.h"
#include "vantro/built_in_terminal.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <set>
#include <string>
#include <vector>

namespace vantro {
namespace {

constexpr int none = 0;  // the operation lets the failing step's error pass

struct ExpectedClass {
    std::string name;
    bool trans;
    bool get;
    std::vector<TextView> transactions;
    int createCommand;
    int verifyResponse;
};

// clang-format off
const std::vector<ExpectedClass> expectedClasses{
    {"CPBITrans",     true,  false, {u"PBI"},  5385, 5390},
    {"CPBNTrans",     true,  false, {u"PBN"},  none, 5035},
    {"CPCNTrans",     true,  false, {u"PCN"},  none, none},
    {"CPDATrans",     true,  false, {u"PDA"},  none, 5105},
    {"CPDITrans",     true,  false, {u"PDI"},  5090, 5095},
    {"CPDMDTrans",    true,  false, {u"PDMD"}, none, none},
    {"CPDNTrans",     true,  false, {u"PDN"},  none, 5075},
    {"CPDRTrans",     true,  false, {u"PDR"},  none, 5110},
    {"CPDTrans",      true,  false, {u"PD"},   5000, 5005},
    {"CPDTTrans",     true,  false, {u"PDT"},  5020, 5025},
    {"CPHTrans",      true,  false, {u"PH"},   5080, 5085},
    {"CPLCTrans",     true,  false, {u"PLC"},  5135, 5140},
    {"CPLTTrans",     true,  false, {u"PLT"},  5050, 5055},
    {"CProfileMode",  true,  false, {u"PM", u"PME", u"PE", u"PEE", u"PI", u"PIE"}, 5040, 5045},
    {"CPXTrans",      true,  false, {u"PX"},   5010, 5015},
    {"CRLPTrans",     true,  false, {u"RLP"},  none, 5130},
    {"CPTTrans",      true,  false, {u"PT"},   none, 5120},
    {"CProfile",      false, true,  {},        none, none},
    {"CProfileNotes", true,  true,  {u"PN", u"PNE", u"PNL"}, 5040, 5045},
};
// clang-format on

void PrintTo(const ExpectedClass& expected, std::ostream* out) { *out << expected.name; }

Text wide(const std::string& name) { return Text(name.begin(), name.end()); }

TEST(ClassTable, NamesThe19PublicClassesInOrder) {
    ASSERT_EQ(expectedClasses.size(), 19U);
    ASSERT_EQ(classTable().size(), 19U);
    for (std::size_t index = 0; index < expectedClasses.size(); ++index) {
        EXPECT_EQ(classTable()[index].name, wide(expectedClasses[index].name)) << "row " << index;
    }
}

TEST(ClassTable, NamesAreUnique) {
    std::set<TextView> names;
    for (const ClassRow& row : classTable()) EXPECT_TRUE(names.insert(row.name).second);
}

class ClassTableRow : public testing::TestWithParam<ExpectedClass> {
protected:
    const ClassRow& row() const {
        const ClassRow* const found = findClass(wide(GetParam().name));
        if (found == nullptr) throw Error(0, u"", u"the class is not in the table");
        return *found;
    }
};

INSTANTIATE_TEST_SUITE_P(Registry, ClassTableRow, testing::ValuesIn(expectedClasses),
                         [](const auto& test) { return test.param.name; });

TEST_P(ClassTableRow, HasItsInterfaces) {
    EXPECT_EQ(row().hasProfileTrans, GetParam().trans);
    EXPECT_EQ(row().hasProfileGet, GetParam().get);
}

TEST_P(ClassTableRow, NamesItsHostTransactions) {
    EXPECT_TRUE(std::ranges::equal(row().transactions, GetParam().transactions));
}

TEST_P(ClassTableRow, RaisesItsErrorNumbers) {
    EXPECT_EQ(row().errors.createCommand, GetParam().createCommand);
    EXPECT_EQ(row().errors.verifyResponse, GetParam().verifyResponse);
}

TEST_P(ClassTableRow, CreatesAnObjectWithExactlyItsInterfaces) {
    BuiltInTerminal terminal;
    const auto object = createObject(row(), terminal);
    ASSERT_NE(object, nullptr);
    EXPECT_EQ(object->profileTrans() != nullptr, GetParam().trans);
    EXPECT_EQ(object->profileGet() != nullptr, GetParam().get);
}

TEST(ErrorNumbers, OnlyProfileModeAndNotesShareThem) {
    std::vector<int> numbers;
    for (const ClassRow& row : classTable()) {
        for (const int number : {row.errors.createCommand, row.errors.verifyResponse}) {
            if (number != none) numbers.push_back(number);
        }
    }
    std::ranges::sort(numbers);
    std::vector<int> shared;
    for (auto number = numbers.begin(); (number = std::ranges::adjacent_find(number, numbers.end())) != numbers.end();
         ++number) {
        shared.push_back(*number);
    }
    EXPECT_EQ(shared, (std::vector<int>{5040, 5045}));
}

TEST(FindClass, ComparesTheExactName) {
    EXPECT_NE(findClass(u"CPXTrans"), nullptr);
    for (const TextView name : {u"", u"CPX", u"cpxtrans", u"CPXTRANS", u"CPXTrans ", u" CPXTrans", u"IProfileTrans"}) {
        EXPECT_EQ(findClass(name), nullptr) << Text(name).size();
    }
}

TEST(FindCount, ReturnsNullForAClassWithoutThatProperty) {
    EXPECT_EQ(findCount(*findClass(u"CPXTrans"), u"RecLocCount"), nullptr);
    EXPECT_EQ(findCount(*findClass(u"CProfile"), u"NoSuchElementsCount"), nullptr);
}

TEST(FindCount, FindsAPropertyByItsExactName) {
    constexpr CountProperty properties[] = {{u"ACount", nullptr}, {u"BCount", nullptr}};
    const ClassRow row{u"CTest", false, true, {}, properties, {}, nullptr};
    EXPECT_EQ(findCount(row, u"BCount"), &properties[1]);
    EXPECT_EQ(findCount(row, u"bcount"), nullptr);
}

TEST(CreateObject, AClassThatThisBuildCannotCreateRaises429) {
    BuiltInTerminal terminal;
    const ClassRow row{u"CTest", true, false, {}, {}, {}, nullptr};
    const auto error = raised([&] { createObject(row, terminal); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), 429);
    EXPECT_EQ(error->source(), u"VantroProfileUtils");
}

TEST(CreateObject, AcceptsTheExactNameOfAClass) {
    BuiltInTerminal terminal;
    EXPECT_NE(createObject(u"CPDNTrans", terminal)->profileTrans(), nullptr);
    const auto error = raised([&] { createObject(u"CPDNTran", terminal); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), 429);
    EXPECT_EQ(error->source(), u"VantroProfileUtils");
    EXPECT_EQ(error->description(), u"There is no class named \"CPDNTran\"");
}

}  // namespace
}  // namespace vantro
