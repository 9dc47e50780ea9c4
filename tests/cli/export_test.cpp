// The command export with folders of CSV files.
#include "cli/export/checker.h"
#include "cli/export/csv_archive.h"
#include "cli/export/exporter.h"
#include "cli/export/profile_rows.h"
#include "cli/io/csv_reader.h"
#include "cli/io/failure.h"
#include "tests/cli/byte_source.h"
#include "tests/cli/process.h"
#include "tests/cli/temporary_folder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

namespace vantro::test {

namespace {

namespace fs = std::filesystem;

using Row = std::vector<std::string>;
using Rows = std::vector<Row>;

const std::string samples = VANTRO_SOURCE_DIR "/samples/profiles";

Rows rowsIn(const std::string& file) {
    CsvReader reader(bytesOf(contentOf(file)));
    Rows rows;
    while (const auto* const cells = reader.next()) rows.emplace_back(cells->begin(), cells->end());
    return rows;
}

/// A traveller's display with this name and locator, one remark and two lines of notes.
std::string traveller(const std::string& name, const std::string& locator) {
    const std::string head = "PDRT/" + locator + "\n*T* TRAVELLER PROFILE" + std::string(53, ' ') + locator + "\n";
    return head + "   1 NM  " + name +
           "\n------- PNR TRANSFERABLE DATA\n"
           "A      2     RM  WINDOW SEAT, PLEASE\n"
           "------- PROFILE NOTES\n"
           "A FIRST\n"
           "B SECOND\n"
           "END OF DISPLAY\n";
}

std::string travellers(std::size_t count) {
    std::string displays;
    for (std::size_t i = 0; i < count; ++i) displays += traveller("GUEST/" + std::to_string(i), "ABC123");
    return displays;
}

class Export : public testing::Test {
protected:
    Finished exported(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), "export");
        arguments.insert(arguments.end(), {"--to", target()});
        return runTool(arguments);
    }

    Finished checked(std::vector<std::string> arguments) const {
        arguments.emplace_back("--check");
        return exported(std::move(arguments));
    }

    std::string target() const { return folder_.in("tables"); }
    std::string table(const std::string& name) const { return target() + "/" + name + ".csv"; }

    /// The rows of a table without the names of its columns.
    Rows rows(const std::string& name) const {
        Rows all = rowsIn(table(name));
        all.erase(all.begin());
        return all;
    }

    void replaceIn(const std::string& name, const std::string& old, const std::string& text) const {
        std::string content = contentOf(table(name));
        const std::size_t at = content.find(old);
        ASSERT_NE(at, std::string::npos);
        content.replace(at, old.size(), text);
        std::ofstream(table(name), std::ios::binary) << content;
    }

    std::string contentOfAll() const {
        std::string all;
        for (const char* const name : {"profiles", "elements", "notes", "problems", "sources"}) {
            all += contentOf(table(name));
        }
        return all;
    }

    TemporaryFolder folder_;
};

TEST_F(Export, WritesADisplayIntoRows) {
    const std::string file = folder_.write("one.txt", traveller("STRAND/EVA MS", "K7P2QM"));
    const Finished run = exported({file});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, "");
    const Rows profiles = rows("profiles");
    ASSERT_EQ(profiles.size(), 1U);
    const std::string hash = profiles[0][4];
    EXPECT_EQ(profiles[0], (Row{"1", file, "1", "1", hash, "traveller", "K7P2QM", "STRAND/EVA MS", "", "", "", "", "",
                                "", "", "1", "2", "0", "PNR TRANSFERABLE DATA;PROFILE NOTES"}));
    EXPECT_EQ(rows("elements"), (Rows{{"1", "RM", "1", "2", "A", "RM  WINDOW SEAT, PLEASE", "", "", "", ""}}));
    EXPECT_EQ(rows("notes"), (Rows{{"1", "1", "A ", "FIRST"}, {"1", "2", "B ", "SECOND"}}));
    EXPECT_EQ(rows("problems"), Rows{});
    EXPECT_EQ(rows("sources"), (Rows{{file, std::to_string(fs::file_size(file)), "1", "0", hash, "1", ""}}));
    const Rows runs = rows("runs");
    ASSERT_EQ(runs.size(), 1U);
    EXPECT_EQ(Row(runs[0].begin() + 4, runs[0].end()), (Row{"1", "1", "0", "1", "1", "2", "0"}));
}

TEST_F(Export, NamesTheColumnsInTheFirstLine) {
    exported({samples});
    for (const TableFacts& facts : exportTables()) {
        Row names;
        for (const Column& column : facts.columns) names.emplace_back(column.name);
        EXPECT_EQ(rowsIn(table(std::string(facts.name))).at(0), names);
    }
}

TEST_F(Export, ABrokenDisplayIsARowOfProblemsAndNotOfProfiles) {
    const std::string file = folder_.write("a file, with blanks.txt",
                                           travellers(1) + std::string(81, 'X') + "\nEND OF DISPLAY\n" + travellers(1));
    const Finished run = exported({file});
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.err.find("3 displays: 2 profiles with 2 elements and 4 notes; 1 could not be read"),
              std::string::npos)
        << run.err;
    const Rows problems = rows("problems");
    ASSERT_EQ(problems.size(), 1U);
    EXPECT_EQ(Row(problems[0].begin(), problems[0].end() - 1), (Row{"2", file, "2", "10", "", ""}));
    EXPECT_NE(problems[0].back().find("line 10"), std::string::npos) << problems[0].back();
    const Rows profiles = rows("profiles");
    ASSERT_EQ(profiles.size(), 2U);
    EXPECT_EQ(profiles[1][0], "3");
    EXPECT_EQ(profiles[1][3], "12");
    EXPECT_EQ(rows("runs").at(0).at(6), "1");
}

std::map<std::string, std::size_t> countsOf(const Rows& rows, std::size_t column) {
    std::map<std::string, std::size_t> counts;
    for (const Row& row : rows) ++counts[row.at(column)];
    return counts;
}

TEST_F(Export, HasAsManyElementsOfEachFamilyAsParse) {
    ASSERT_EQ(exported({samples}).status, 0);
    CsvReader parsed(bytesOf(runTool({"parse", "--csv", samples}).out));
    Rows elements;
    const std::map<std::string, std::size_t> families = countsOf(rows("elements"), 1);
    while (const auto* const cells = parsed.next()) {
        if (families.contains(std::string(cells->at(4)))) elements.emplace_back(cells->begin(), cells->end());
    }
    EXPECT_GT(families.size(), 25U);
    EXPECT_EQ(countsOf(elements, 4), families);
}

TEST_F(Export, ThreadsChangeNothing) {
    folder_.write("in/many.txt", travellers(5000));
    exported({folder_.in("in")});
    const std::string one = contentOfAll();
    fs::remove_all(target());
    exported({"-j", "4", folder_.in("in")});
    EXPECT_EQ(contentOfAll(), one);
}

TEST_F(Export, ASecondRunReadsOnlyWhatIsNew) {
    const std::string first = folder_.write("first.txt", travellers(2));
    exported({first});
    const std::string before = contentOfAll();
    const Finished again = exported({first});
    EXPECT_EQ(again.status, 0);
    EXPECT_NE(again.err.find("exported before"), std::string::npos);
    EXPECT_EQ(contentOfAll(), before);
    EXPECT_EQ(rows("runs").size(), 1U);

    const std::string second = folder_.write("second.txt", travellers(3));
    EXPECT_EQ(exported({second, first, second}).status, 0);
    EXPECT_EQ(rows("profiles").size(), 5U);
    EXPECT_EQ(rows("profiles").at(2).at(0), "3");
    EXPECT_EQ(rows("runs").size(), 2U);
}

TEST_F(Export, ItsOwnFilesAreNotRead) {
    folder_.write("tables-of-2024.txt", travellers(1));
    ASSERT_EQ(exported({folder_.path()}).status, 0);
    EXPECT_EQ(exported({folder_.path()}).status, 0);
    EXPECT_EQ(runTool({"export", folder_.path(), "--to", target() + "/"}).status, 0);
    EXPECT_EQ(rows("sources").size(), 1U);
    EXPECT_EQ(rows("profiles").size(), 1U);
}

TEST_F(Export, RefusesAFileThatHasChanged) {
    const std::string file = folder_.write("first.txt", travellers(2));
    exported({file});
    folder_.write("first.txt", travellers(3));
    const Finished again = exported({file, folder_.write("second.txt", travellers(1))});
    EXPECT_EQ(again.status, 2);
    EXPECT_NE(again.err.find("has changed since its export"), std::string::npos) << again.err;
    EXPECT_EQ(rows("profiles").size(), 3U);
}

TEST_F(Export, AFileWithoutDisplaysOrThatIsMissingIsSaid) {
    const Finished run = exported({folder_.write("empty.txt", "\n\n"), folder_.in("missing.txt")});
    EXPECT_EQ(run.status, 2);
    EXPECT_NE(run.err.find("empty.txt contains no display"), std::string::npos) << run.err;
    EXPECT_NE(run.err.find("missing.txt"), std::string::npos) << run.err;
    ASSERT_EQ(rows("sources").size(), 1U);  // the missing file is tried again by the next run
    folder_.write("missing.txt", travellers(1));
    EXPECT_EQ(exported({folder_.in("missing.txt")}).status, 0);
}

TEST_F(Export, RefusesTargetsThatAreSomethingElse) {
    folder_.write("tables/profiles.csv", "name\nSTRAND\n");
    const Finished foreign = exported({samples});
    EXPECT_EQ(foreign.status, 2);
    EXPECT_NE(foreign.err.find("is not from an export"), std::string::npos) << foreign.err;
    EXPECT_EQ(contentOf(table("profiles")), "name\nSTRAND\n");
    EXPECT_EQ(runTool({"export", samples, "--to", folder_.write("file", "x") + "/below"}).status, 2);
    EXPECT_EQ(runTool({"export", samples, "--check", "--to", folder_.in("nothing")}).status, 2);
    EXPECT_EQ(runTool({"export", samples}).status, 2);
}

TEST_F(Export, RefusesOtherOptionsVersionsAndStates) {
    exported({samples});
    const Finished other = exported({"--pages", "--separator", "###", samples});
    EXPECT_EQ(other.status, 2);
    EXPECT_NE(other.err.find("'--pages --separator '###''"), std::string::npos) << other.err;
    folder_.write("tables/export.state", "export,999,\n");
    EXPECT_NE(exported({samples}).err.find("version 999"), std::string::npos);
    folder_.write("tables/export.state", "something\n");
    EXPECT_NE(exported({samples}).err.find("not the state of an export"), std::string::npos);
}

TEST_F(Export, RefusesToContinueTablesThatWereChanged) {
    exported({samples});
    replaceIn("notes", "COLLECTS TILES", "COLLECTS TILES AND STAMPS");
    const Finished again = exported({samples, folder_.write("more.txt", travellers(1))});
    EXPECT_EQ(again.status, 2);
    EXPECT_NE(again.err.find("notes.csv' was changed"), std::string::npos) << again.err;
}

TEST_F(Export, RefusesToContinueTablesWithOtherColumns) {
    exported({samples});
    replaceIn("profiles", "sections\n", "sektions\n");
    const Finished again = exported({samples, folder_.write("more.txt", travellers(1))});
    EXPECT_EQ(again.status, 2);
    EXPECT_NE(again.err.find("profiles.csv' has other columns"), std::string::npos) << again.err;
}

// ---- Interrupted runs

/// Exports these files up to a number of pieces, and ends without a commit.
void exportPieces(const std::string& target, const std::vector<std::string>& files, std::size_t pieces) {
    const auto archive = writeCsvFolder(target, "");
    Exporter exporter(*archive, {.run = archive->state().runs.size() + 1}, defaultMaxLine, 5);
    for (const std::string& file : files) {
        exporter.beginSource(file);
        ChunkReader reader(openInput(file), 1000);
        while (const auto chunk = reader.next()) {
            if (pieces-- == 0) return;
            exporter.take(rowsOf(*chunk, {}));
        }
        exporter.endSource("");
    }
    exporter.finish("now");
}

TEST_F(Export, ARunThatWasInterruptedAnywhereIsContinued) {
    const std::vector<std::string> files{folder_.write("a.txt", travellers(23)), folder_.write("b.txt", travellers(2)),
                                         folder_.write("c.txt", travellers(40))};
    exported(files);
    const std::string whole = contentOfAll();
    for (std::size_t pieces = 0; pieces < 18; ++pieces) {
        fs::remove_all(target());
        exportPieces(target(), files, pieces);
        const Finished rest = exported(files);
        EXPECT_EQ(rest.status, 0) << rest.err;
        EXPECT_EQ(contentOfAll(), whole) << pieces;
        EXPECT_EQ(checked(files).status, 0);
    }
}

TEST_F(Export, WhatFollowsTheLastCommitIsDropped) {
    const std::vector<std::string> files{folder_.write("a.txt", travellers(23))};
    exported(files);
    const std::string whole = contentOfAll();
    fs::remove_all(target());
    exportPieces(target(), files, 4);
    for (const char* const name : {"profiles.csv", "elements.csv", "export.state"}) {
        std::ofstream(target() + "/" + name, std::ios::app | std::ios::binary) << "source,\"half a row";
    }
    EXPECT_EQ(checked(files).status, 1);
    exported(files);
    EXPECT_EQ(contentOfAll(), whole);
}

TEST_F(Export, TheInterruptedFileMustBeNamedAndUnchanged) {
    const std::string file = folder_.write("a.txt", travellers(23));
    exportPieces(target(), {file}, 4);
    const Finished without = exported({folder_.write("b.txt", travellers(1))});
    EXPECT_EQ(without.status, 2);
    EXPECT_NE(without.err.find("interrupted in '" + file + "'"), std::string::npos) << without.err;
    folder_.write("a.txt", traveller("OTHER/MAN", "ZZZZZZ") + travellers(22));
    EXPECT_NE(exported({file}).err.find("was changed since a part of it"), std::string::npos);
    folder_.write("a.txt", travellers(1));
    EXPECT_NE(exported({file}).err.find("was changed since a part of it"), std::string::npos);
    fs::remove(file);
    EXPECT_NE(exported({file}).err.find("cannot be continued: cannot read the file"), std::string::npos);
}

TEST_F(Export, TwoProgramsCannotWriteAtTheSameTime) {
    auto one = writeCsvFolder(target(), "");
    EXPECT_THROW(writeCsvFolder(target(), ""), UsageError);
    one.reset();
    EXPECT_NO_THROW(writeCsvFolder(target(), ""));
}

TEST_F(Export, ASecondRunThatWasInterruptedIsContinued) {
    const std::vector<std::string> files{folder_.write("a.txt", travellers(3)), folder_.write("b.txt", travellers(23))};
    exported(files);
    const std::string whole = contentOfAll();
    fs::remove_all(target());
    exported({files[0]});
    for (const std::size_t pieces : {0U, 1U, 3U}) {
        exportPieces(target(), {files[1]}, pieces);
        std::ofstream(target() + "/notes.csv", std::ios::app | std::ios::binary) << "7,";
        EXPECT_EQ(checked({files[0]}).status, 0);
    }
    EXPECT_EQ(exported(files).status, 0);
    EXPECT_EQ(contentOfAll(), whole);
}

TEST_F(Export, ARunThatCannotWriteItsLastTablesIsContinued) {
    fs::create_directories(target() + "/sources.csv");
    EXPECT_NE(exported({samples}).status, 0);
    fs::remove(target() + "/sources.csv");
    EXPECT_EQ(exported({samples}).status, 0);
    EXPECT_EQ(rows("sources").size(), 12U);
    EXPECT_EQ(rows("runs").size(), 2U);
}

TEST_F(Export, OneFileHasOneName) {
    const std::string file = folder_.write("in/a.txt", travellers(2));
    exported({folder_.path() + "/./in/a.txt"});
    const Finished again = exported({folder_.path() + "/in/../in"});
    EXPECT_NE(again.err.find("1 file exported before"), std::string::npos) << again.err;
    EXPECT_EQ(rows("sources").at(0).at(0), file);
}

TEST_F(Export, AnEmptyNameIsStandardInput) {
    const Finished run = runTool({"export", "", "--to", target()}, travellers(2));
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(rows("sources").at(0).at(0), "-");
    EXPECT_EQ(runTool({"export", samples, "--to", ""}).status, 2);
}

TEST_F(Export, AnInterruptedFileMayGrow) {
    const std::string file = folder_.write("a.txt", travellers(23));
    exportPieces(target(), {file}, 4);
    folder_.write("a.txt", travellers(24));
    EXPECT_EQ(exported({file}).status, 0);
    EXPECT_EQ(exported({file}).status, 0);
    EXPECT_EQ(rows("profiles").size(), 24U);
}

TEST_F(Export, ACompressedFileThatIsCutOffIsExportedAsFarAsItGoes) {
    folder_.write("many.txt", travellers(20000));
    ASSERT_EQ(std::system(("gzip -k '" + folder_.in("many.txt") + "'").c_str()), 0);
    const std::string file = folder_.in("many.txt.gz");
    fs::resize_file(file, fs::file_size(file) / 2);
    const Finished run = exported({file});
    EXPECT_EQ(run.status, 2) << run.err;
    const Row source = rows("sources").at(0);
    EXPECT_EQ(source.at(2), std::to_string(rows("profiles").size() + std::stoul(source.at(3))));
    EXPECT_NE(source.at(6), "");
    EXPECT_EQ(checked({file}).status, 0);
    EXPECT_EQ(exported({file}).status, 2);  // every run says so

    ASSERT_NE(std::system(("gunzip -c '" + file + "' > '" + folder_.in("rest.txt") + "' 2>/dev/null").c_str()), 0);
    const std::string rest = contentOf(folder_.in("rest.txt"));
    std::size_t ends = 0;
    for (std::size_t at = 0; (at = rest.find("END OF DISPLAY\n", at)) != std::string::npos; ++at) ++ends;
    EXPECT_EQ(rows("profiles").size(), ends);
}

// ---- --check

TEST_F(Export, CheckFindsNothingWhereNothingDiffers) {
    exported({samples});
    const Finished check = checked({"-j", "2", samples});
    EXPECT_EQ(check.status, 0) << check.out;
    EXPECT_EQ(check.out, "");
}

TEST_F(Export, CheckFindsRowsThatWereRemovedChangedAndAdded) {
    exported({samples + "/traveller.txt", samples + "/company.txt"});
    replaceIn("elements", "1,PHI,1,25,,BREAKFAST MUST BE INCLUDED,,,,\n", "");
    replaceIn("profiles", "LINDQVIST/AGNES MS", "LINDQUIST/AGNES MS");
    replaceIn("notes", "1,2,", "1,2,X,TWICE\n1,2,");
    replaceIn("notes", "2,1,", "7,1,X,OF NO DISPLAY\n2,1,");
    const Finished check = checked({samples + "/traveller.txt", samples + "/company.txt"});
    EXPECT_EQ(check.status, 1);
    EXPECT_NE(check.out.find("missing row of elements: display_id 1, family PHI, position 1\n"), std::string::npos);
    EXPECT_NE(check.out.find("different row of profiles: display_id 1: name is 'LINDQUIST/AGNES MS' instead of "
                             "'LINDQVIST/AGNES MS'\n"),
              std::string::npos)
        << check.out;
    EXPECT_NE(check.out.find("of notes: display_id 1, number 2"), std::string::npos) << check.out;
    EXPECT_NE(check.out.find("extra row of notes: display_id 7, number 1\n"), std::string::npos) << check.out;
}

TEST_F(Export, CheckComparesOnlyTheFilesThatAreNamed) {
    const std::string a = folder_.write("a.txt", travellers(2));
    const std::string b = folder_.write("b.txt", travellers(3));
    const std::string c = folder_.write("c.txt", travellers(4));
    exported({a, b, c});
    replaceIn("notes", "1,1,\"A \",FIRST\n", "");
    replaceIn("notes", "9,1,\"A \",FIRST\n", "");
    const Finished check = checked({b});
    EXPECT_EQ(check.status, 0) << check.out;
    EXPECT_NE(check.err.find("2 exported files not named"), std::string::npos) << check.err;
    EXPECT_EQ(linesOf(checked({c, a}).out).size(), 2U);
}

TEST_F(Export, CheckSaysOnceThatAFileIsMissing) {
    const std::string a = folder_.write("a.txt", travellers(2));
    const std::string b = folder_.write("b.txt", travellers(2));
    exported({a, b});
    fs::remove(a);
    const Finished check = checked({a, b});
    EXPECT_EQ(check.status, 1);
    EXPECT_EQ(linesOf(check.out).size(), 1U) << check.out;
}

TEST_F(Export, CheckNamesFilesAndDisplaysThatAreNotExported) {
    const std::string a = folder_.write("a.txt", travellers(2));
    exported({a});
    folder_.write("a.txt", travellers(4));
    const Finished check = checked({a, folder_.write("b.txt", travellers(1))});
    EXPECT_EQ(check.status, 1);
    EXPECT_NE(check.out.find("b.txt: it is not exported"), std::string::npos) << check.out;
    EXPECT_NE(check.out.find("a.txt: 2 at its end not exported"), std::string::npos) << check.out;
    folder_.write("a.txt", travellers(1));
    EXPECT_NE(checked({a}).out.find("extra row of profiles: display_id 2"), std::string::npos);
}

// ---- The document

std::string documented(std::span<const Column> columns) {
    std::string rows;
    for (const Column& column : columns) {
        rows.append("| `").append(column.name);
        rows.append(column.kind == ColumnKind::Integer ? "` | number | " : "` | text | ");
        rows.append(column.meaning).append(" |\n");
    }
    return rows;
}

TEST(ExportDocument, DescribesEveryColumn) {
    const std::string page = contentOf(VANTRO_SOURCE_DIR "/docs/archives.md");
    const auto expect = [&page](std::string_view name, std::span<const Column> columns) {
        const std::size_t start = page.find("### `" + std::string(name) + "`");
        ASSERT_NE(start, std::string::npos) << name;
        const std::size_t table = page.find("|---|---|---|\n", start) + 14;
        EXPECT_EQ(page.substr(table, page.find("\n\n", table) + 1 - table), documented(columns));
    };
    for (const TableFacts& facts : exportTables()) expect(facts.name, facts.columns);
    expect("sources", sourceColumns());
    expect("runs", runColumns());
    EXPECT_NE(page.find("The version of the tables is " + std::to_string(exportVersion) + "."), std::string::npos);
}

// ---- Rows

TEST(DisplayHash, IsThatOfTheTextWithoutTheBlanksAtItsEnd) {
    EXPECT_EQ(hashOf(u""), "99aa06d3014798d86001c324468d497f");  // the published value for no bytes
    EXPECT_EQ(hashOf(u"END  "), hashOf(u"END"));
    EXPECT_NE(hashOf(u" END"), hashOf(u"END"));
}

TEST(ProfileRows, KnowTheKindByTheMarkInOneOfTheFirstSevenLines) {
    const auto kindOf = [](const std::string& text) {
        const PieceRows rows = rowsOf(text, {});
        Cells cells;
        rows.tables.at(indexOf(ExportTable::Profiles)).read(0, cells);
        return std::string(cells.at(1));
    };
    EXPECT_EQ(kindOf("*C* COMPANY\n"), "company");
    EXPECT_EQ(kindOf("1\n2\n3\n4\n5\n6\n*T* TRAVELLER\n"), "traveller");
    EXPECT_EQ(kindOf("1\n2\n3\n4\n5\n6\n7\n*T* TRAVELLER\n"), "");
    EXPECT_EQ(kindOf(" *T* TRAVELLER\n"), "");
}

/// Counts what is added.
class CountingArchive final : public ArchiveWriter {
public:
    const ArchiveState& state() const override { return state_; }
    void add(const TableFacts& table, const Cells& row) override {
        ++rows;
        if (table.table == ExportTable::Profiles) lastProfile.assign(row.begin(), row.end());
    }
    void commit(std::span<const SourceState> changed, const RunState& run) override {
        for (const SourceState& source : changed) state_.take(source);
        state_.take(run);
        ++commits;
    }
    void finish(const RunState& run) override { state_.take(run); }

    std::size_t rows = 0;
    std::size_t commits = 0;
    Row lastProfile;

private:
    ArchiveState state_;
};

TEST(Exporter, CountsLinesBeyond32Bits) {
    PieceRows piece = rowsOf(travellers(1), {});
    piece.lines = std::size_t{1} << 31U;  // as if so many blank lines followed
    CountingArchive archive;
    Exporter exporter(archive, {.run = 1}, defaultMaxLine);
    exporter.beginSource("tape");
    for (int i = 0; i < 4; ++i) exporter.take(piece);
    exporter.endSource("");
    EXPECT_EQ(archive.lastProfile.at(0), "4");
    EXPECT_EQ(archive.lastProfile.at(3), "6442450945");
}

TEST(Exporter, CommitsWheneverSoManyDisplaysAreTaken) {
    const PieceRows piece = rowsOf(travellers(3), {});
    CountingArchive archive;
    Exporter exporter(archive, {.run = 1}, defaultMaxLine, 6);
    exporter.beginSource("tape");
    for (int i = 0; i < 5; ++i) exporter.take(piece);
    exporter.endSource("");
    EXPECT_EQ(archive.commits, 3U);  // one before the first display
    EXPECT_EQ(exporter.finish("now").displays, 15U);
    EXPECT_EQ(archive.commits, 4U);
    EXPECT_EQ(archive.rows, 15U * 4U);
}

}  // namespace

}  // namespace vantro::test
