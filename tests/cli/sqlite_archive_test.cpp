// Exports as SQLite databases: what is in them, what is left after a run that was killed, and what is refused.
#include "cli/export/archive.h"
#include "cli/export/database.h"
#include "cli/export/schema.h"
#include "cli/export/views.h"
#include "cli/io/failure.h"
#include "tests/cli/temporary_folder.h"

#include <gmock/gmock.h>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <vector>

using namespace vantro;
using namespace vantro::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr auto options = "--pages";

const TableFacts& profiles = factsOf(ExportTable::Profiles);
const TableFacts& elements = factsOf(ExportTable::Elements);
const TableFacts& notes = factsOf(ExportTable::Notes);
const TableFacts& problems = factsOf(ExportTable::Problems);

/// A row with these first cells; the others are empty.
Cells row(const TableFacts& table, Cells cells) {
    cells.resize(table.columns.size());
    return cells;
}

Cells profileRow(std::string_view id, std::string_view display, std::string_view name = "LINDQVIST/AGNES MS") {
    return row(profiles, {id, "a.txt", display, "1", "0123456789abcdef0123456789abcdef", "traveller", "H4T9QZ", name});
}

Cells elementRow(std::string_view id, std::string_view family, std::string_view position, std::string_view text) {
    return row(elements, {id, family, position, "33", "", text});
}

SourceState source(std::size_t displays, bool isDone = false) {
    return {.name = "a.txt", .bytes = 4, .displays = displays, .isDone = isDone};
}

RunState run(std::size_t number, std::string finished = "") {
    return {.run = number, .started = "2026-11-23T08:15:00Z", .finished = std::move(finished), .version = "1.0"};
}

/// The rows that a statement returns, their cells with a bar between them.
std::vector<std::string> answers(const std::string& file, const std::string& statement) {
    Database database(file, Database::Access::Read);
    Statement asked = database.prepare(statement);
    std::vector<std::string> rows;
    while (asked.next()) {
        std::string cells;
        for (int column = 0; column < asked.columns(); ++column) {
            cells += (column == 0 ? "" : "|") + std::string(asked.text(column));
        }
        rows.push_back(cells);
    }
    return rows;
}

std::string complaint(const std::function<void()>& act) {
    try {
        act();
    } catch (const UsageError& error) {
        return error.what();
    } catch (const StreamError& error) {
        return std::string("stream: ") + error.what();
    }
    return "";
}

class SqliteArchive : public testing::Test {
protected:
    std::unique_ptr<ArchiveWriter> writer() const { return openForWriting(file, options); }

    std::unique_ptr<ArchiveReader> reader() const { return openForReading(file, options); }

    std::vector<std::string> ask(const std::string& statement) const { return answers(file, statement); }

    /// A finished export of one display with one passport and one note.
    void exportOne() const {
        const auto archive = writer();
        archive->add(profiles, profileRow("1", "1"));
        archive->add(elements, elementRow("1", "PAS", "1", "88104423 SWE 11NOV31"));
        archive->add(notes, row(notes, {"1", "1", "A ", "SPEAKS SWEDISH, FINNISH AND ENGLISH"}));
        archive->commit(std::vector{source(1, true)}, run(1));
        archive->finish(run(1, "2026-11-23T08:16:00Z"));
    }

    /// Changes a finished export as another program would.
    void change(const std::string& statements) const { Database(file, Database::Access::Write).run(statements); }

    TemporaryFolder folder;
    std::string file = folder.in("archive.db");
};

std::vector<std::vector<std::string>> all(ArchiveReader& reader, const TableFacts& table) {
    std::vector<std::vector<std::string>> rows;
    const auto found = reader.rows(table);
    while (const Cells* const cells = found->next()) rows.emplace_back(cells->begin(), cells->end());
    return rows;
}

TEST_F(SqliteArchive, RowsComeBackAsTheyWereAdded) {
    exportOne();
    const auto archive = reader();
    EXPECT_THAT(all(*archive, elements),
                ElementsAre(ElementsAre("1", "PAS", "1", "33", "", "88104423 SWE 11NOV31", "", "", "", "")));
    EXPECT_THAT(all(*archive, notes), ElementsAre(ElementsAre("1", "1", "A ", "SPEAKS SWEDISH, FINNISH AND ENGLISH")));
    EXPECT_THAT(all(*archive, problems), IsEmpty());
    ASSERT_EQ(all(*archive, profiles).size(), 1U);
    EXPECT_EQ(all(*archive, profiles)[0][7], "LINDQVIST/AGNES MS");
}

TEST_F(SqliteArchive, AnEmptyCellIsNullAndANumberIsANumber) {
    exportOne();
    EXPECT_THAT(
        ask("SELECT typeof(display_id), typeof(source), typeof(line), typeof(office), office IS NULL FROM profiles"),
        ElementsAre("integer|text|integer|null|1"));
    EXPECT_THAT(ask("SELECT typeof(id), typeof(position), typeof(number), typeof(kind) FROM elements"),
                ElementsAre("integer|integer|text|null"));
}

TEST_F(SqliteArchive, TextsAreKeptToTheLetter) {
    const std::vector<std::string> texts{" BLANKS AROUND ",
                                         "QUOTES ' \" `",
                                         "'); DROP TABLE notes;--",
                                         "?1 %s \\n",
                                         "\xC3\x84\xE2\x82\xAC\xF0\x9F\x9A\x86",
                                         "0012",
                                         "1e3",
                                         "\t"};
    {
        const auto archive = writer();
        archive->add(profiles, profileRow("1", "1"));
        for (std::size_t index = 0; index < texts.size(); ++index) {
            const std::string position = std::to_string(index + 1);
            archive->add(elements, elementRow("1", "RM", position, texts[index]));
        }
        archive->commit(std::vector{source(1)}, run(1));
    }
    const auto rows = all(*reader(), elements);
    ASSERT_EQ(rows.size(), texts.size());
    for (std::size_t index = 0; index < texts.size(); ++index) EXPECT_EQ(rows[index][5], texts[index]);
}

TEST_F(SqliteArchive, ColumnsAreThoseOfTheTables) {
    exportOne();
    for (const TableFacts& table : exportTables()) {
        const std::string name(table.name);
        const std::string own = table.table == ExportTable::Elements || table.table == ExportTable::Notes ? "id" : "";
        std::vector<std::string> expected;
        for (const Column& column : table.columns) {
            expected.push_back(std::string(column.name) + (column.kind == ColumnKind::Integer ? "|INTEGER" : "|TEXT"));
        }
        EXPECT_EQ(ask("SELECT name, type FROM pragma_table_info('" + name + "') WHERE name <> '" + own + "'"),
                  expected);
    }
    EXPECT_THAT(ask("SELECT name FROM pragma_table_info('sources') WHERE pk = 0 LIMIT 2"),
                ElementsAre("source", "bytes"));
}

TEST_F(SqliteArchive, WhatWasNotCommittedIsNotThere) {
    {
        const auto archive = writer();
        archive->add(profiles, profileRow("1", "1"));
        archive->commit(std::vector{source(1)}, run(1));
        archive->add(profiles, profileRow("2", "2"));
        archive->add(elements, elementRow("2", "PAS", "1", "LOST"));
    }
    EXPECT_EQ(writer()->state().sources.at(0).displays, 1U);
    EXPECT_FALSE(writer()->state().isFinished());
    EXPECT_EQ(all(*reader(), profiles).size(), 1U);
    EXPECT_THAT(all(*reader(), elements), IsEmpty());
}

// The files of a process that was killed between two commits, with the log that it could not copy into the database.
TEST_F(SqliteArchive, TheFilesOfAKilledProcessContainTheLastCommit) {
    const std::string copy = folder.in("killed.db");
    {
        const auto archive = writer();
        archive->add(profiles, profileRow("1", "1"));
        archive->commit(std::vector{source(1)}, run(1));
        archive->add(profiles, profileRow("2", "2"));
        std::filesystem::copy_file(file, copy);
        std::filesystem::copy_file(file + "-wal", copy + "-wal");
    }
    const auto archive = openForWriting(copy, options);
    EXPECT_EQ(archive->state().sources.at(0).displays, 1U);
    archive->add(profiles, profileRow("2", "2"));
    archive->commit(std::vector{source(2)}, run(2));
    archive->finish(run(2, "2026-11-23T08:16:00Z"));
    EXPECT_THAT(answers(copy, "SELECT display_id FROM profiles"), ElementsAre("1", "2"));
}

// So many changes that some were written to the file already, which the journal beside it takes back.
TEST_F(SqliteArchive, AReaderTakesBackWhatWasInterrupted) {
    exportOne();
    const std::string copy = folder.in("killed.db");
    {
        Database database(file, Database::Access::Write);
        database.run(
            "PRAGMA cache_size = 1; BEGIN; WITH RECURSIVE n (i) AS (SELECT 2 UNION ALL SELECT i + 1 FROM n "
            "WHERE i < 5000) INSERT INTO notes (display_id, number, text) SELECT 1, i, 'LOST' FROM n");
        std::filesystem::copy_file(file, copy);
        std::filesystem::copy_file(file + "-journal", copy + "-journal");
    }
    EXPECT_EQ(all(*openForReading(copy, options), notes).size(), 1U);
}

TEST_F(SqliteArchive, ALaterRunAddsToAFinishedExport) {
    exportOne();
    {
        const auto archive = writer();
        EXPECT_TRUE(archive->state().isFinished());
        archive->add(profiles, row(profiles, {"2", "b.txt", "1", "1"}));
        archive->add(notes, row(notes, {"2", "1", "V ", "VEGETARIAN"}));
        SourceState other = source(1, true);
        other.name = "b.txt";
        archive->commit(std::vector{other}, run(2));
        archive->finish(run(2, "2026-11-23T08:17:00Z"));
    }
    EXPECT_THAT(ask("SELECT source, displays, done FROM sources ORDER BY id"), ElementsAre("a.txt|1|1", "b.txt|1|1"));
    EXPECT_THAT(ask("SELECT run, finished FROM runs"), ElementsAre("1|2026-11-23T08:16:00Z", "2|2026-11-23T08:17:00Z"));
    EXPECT_THAT(ask("SELECT rowid FROM notes_fts('vegetarian OR english')"), ElementsAre("1", "2"));
    const auto archive = reader();
    EXPECT_EQ(archive->state().runs.size(), 2U);
    EXPECT_EQ(archive->state().sources.at(1).name, "b.txt");
}

TEST_F(SqliteArchive, TheStateOfASourceIsReplaced) {
    SourceState failing = source(3, true);
    failing.failed = 1;
    failing.lastHash = "0123456789abcdef0123456789abcdef";
    failing.problem = "the gzip data end early";
    {
        const auto archive = writer();
        archive->add(profiles, profileRow("1", "1"));
        archive->commit(std::vector{source(1)}, run(1));
        archive->commit(std::vector{failing}, run(1));
    }
    const ArchiveState state = openForReading(file, options)->state();
    ASSERT_EQ(state.sources.size(), 1U);
    EXPECT_EQ(cellsOf(state.sources[0]), cellsOf(failing));
    ASSERT_EQ(state.runs.size(), 1U);
    EXPECT_EQ(cellsOf(state.runs[0]), cellsOf(run(1)));
}

TEST_F(SqliteArchive, RowsAreReadInTheOrderOfTheDisplays) {
    exportOne();
    change(
        "INSERT INTO profiles (display_id, source, display) VALUES (3, 'a.txt', 3), (2, 'a.txt', 2);"
        "INSERT INTO elements (display_id, family, position) VALUES (3, 'RM', 1), (2, 'RM', 1), (2, 'AP', 1)");
    std::vector<std::string> found;
    for (const auto& cells : all(*reader(), elements)) found.push_back(cells[0] + cells[1]);
    EXPECT_THAT(found, ElementsAre("1PAS", "2RM", "2AP", "3RM"));
}

TEST_F(SqliteArchive, NoDisplayIsThereTwice) {
    exportOne();
    const auto archive = writer();
    EXPECT_EQ(complaint([&] { archive->add(profiles, profileRow("1", "2")); }),
              "stream: the database '" + file + "': UNIQUE constraint failed: profiles.display_id");
    EXPECT_EQ(complaint([&] { archive->add(elements, elementRow("1", "PAS", "1", "TWICE")); }),
              "stream: the database '" + file +
                  "': UNIQUE constraint failed: elements.display_id, elements.family, elements.position");
}

// A display that was not read has no query in its problem, and no value equals another no value in an index.
TEST_F(SqliteArchive, AProblemIsThereOnce) {
    exportOne();
    for (const char* const query : {"'PHI'", "NULL"}) {
        const std::string add =
            "INSERT INTO problems (display_id, source, display, line, query) VALUES (2, 'a.txt', 2, 9, " +
            std::string(query) + ")";
        EXPECT_EQ(complaint([&] { change(add); }), "");
        EXPECT_THAT(complaint([&] { change(add); }), testing::HasSubstr("UNIQUE constraint failed"));
    }
}

TEST_F(SqliteArchive, ReferencesHold) {
    exportOne();
    EXPECT_THAT(ask("PRAGMA foreign_key_check"), IsEmpty());
    EXPECT_THAT(ask("PRAGMA integrity_check"), ElementsAre("ok"));
    change("DELETE FROM profiles");
    EXPECT_THAT(ask("PRAGMA foreign_key_check"), testing::SizeIs(2)) << "the element's and the note's";
}

TEST_F(SqliteArchive, WordsAreFound) {
    exportOne();
    EXPECT_THAT(ask("SELECT notes.text FROM notes JOIN notes_fts ON notes_fts.rowid = notes.id WHERE notes_fts MATCH "
                    "'finnish'"),
                ElementsAre("SPEAKS SWEDISH, FINNISH AND ENGLISH"));
    EXPECT_THAT(ask("SELECT family FROM elements WHERE id IN (SELECT rowid FROM elements_fts('swe'))"),
                ElementsAre("PAS"));
    EXPECT_THAT(ask("SELECT rowid FROM notes_fts('norwegian')"), IsEmpty());
}

TEST_F(SqliteArchive, ExpiryIsTheLatestDateOfADocument) {
    const auto archive = writer();
    archive->add(profiles, profileRow("1", "1"));
    const std::vector<std::string> texts{"88104423 SWE 11NOV31",
                                         "BORN 04MAY75 ISSUED 12NOV21 EXP 11NOV2031",
                                         "P-GBR-5512-01JAN46",
                                         "P/GBR/5512/01JAN47",
                                         "NOVAK 31FEB30",
                                         "\"A\\B\" 30JUN28.",
                                         "12ANF30",
                                         "881203 FIN"};
    for (std::size_t index = 0; index < texts.size(); ++index) {
        const std::string position = std::to_string(index + 1);
        archive->add(elements, elementRow("1", "PAS", position, texts[index]));
    }
    archive->commit(std::vector{source(1)}, run(1));
    archive->finish(run(1));
    EXPECT_THAT(ask("SELECT expires FROM documents ORDER BY position"),
                ElementsAre("2031-11-11", "2031-11-11", "2046-01-01", "1947-01-01", "", "2028-06-30", "", ""));
}

TEST_F(SqliteArchive, ViewsAnswer) {
    const auto archive = writer();
    archive->add(profiles, profileRow("1", "1"));
    archive->add(profiles, profileRow("2", "2", "DUFOUR/CLEMENCE MS"));
    archive->add(elements, elementRow("1", "AP", "1", "AP  STO 08 555 0142-H"));
    archive->add(elements, elementRow("1", "AP", "2", "AP  STO 08 555 0199-B"));
    archive->add(elements, elementRow("1", "PID", "1", "SWE NATIONAL CARD 7719-02"));
    archive->commit(std::vector{source(2, true)}, run(1));
    archive->finish(run(1));
    EXPECT_THAT(ask("SELECT name, contact_count, contacts FROM profile_contacts ORDER BY display_id"),
                ElementsAre("LINDQVIST/AGNES MS|2|STO 08 555 0142-H; STO 08 555 0199-B", "DUFOUR/CLEMENCE MS|0|"));
    EXPECT_THAT(ask("SELECT * FROM documents"),
                ElementsAre("1|H4T9QZ|LINDQVIST/AGNES MS|PID|1|SWE NATIONAL CARD 7719-02|"));
    EXPECT_THAT(ask("SELECT * FROM element_counts"), ElementsAre("1|AP|2", "1|PID|1"));
}

TEST_F(SqliteArchive, EveryColumnIsExplained) {
    exportOne();
    EXPECT_THAT(ask("SELECT m.name, c.name FROM sqlite_master AS m JOIN pragma_table_info(m.name) AS c "
                    "WHERE m.type IN ('table', 'view') AND m.name NOT LIKE '%_fts%' AND m.name NOT LIKE 'sqlite_%' "
                    "AND c.name <> 'id' AND NOT EXISTS (SELECT 1 FROM columns WHERE table_name = m.name AND "
                    "column_name = c.name AND meaning > '')"),
                IsEmpty());
    EXPECT_THAT(ask("SELECT meaning, section FROM families WHERE family = 'PAS'"), ElementsAre("passport|DOCUMENTS"));
}

TEST_F(SqliteArchive, NothingIsLeftBesideAFinishedDatabase) {
    exportOne();
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
        names.push_back(entry.path().filename().string());
    }
    EXPECT_THAT(names, ElementsAre("archive.db"));
    EXPECT_THAT(ask("PRAGMA journal_mode"), ElementsAre("delete"));
}

TEST_F(SqliteArchive, AnInterruptionWhileItIsFinishedIsRepeated) {
    {
        const auto archive = writer();
        archive->add(profiles, profileRow("1", "1"));
        archive->commit(std::vector{source(1, true)}, run(1));
    }
    const auto archive = writer();
    archive->finish(run(2, "2026-11-23T08:16:00Z"));
    archive->finish(run(2, "2026-11-23T08:16:00Z"));
    EXPECT_THAT(ask("SELECT count(*) FROM profile_contacts"), ElementsAre("1"));
}

TEST_F(SqliteArchive, OtherFilesAreRefused) {
    const std::string content =
        "PDRT/H4T9QZ and more than the first hundred bytes, so that it is not too short to be "
        "anything else but a text that somebody keeps\n";
    const std::string text = folder.write("text.db", content);
    EXPECT_EQ(complaint([&] { openForWriting(text, options); }), "'" + text + "' is not a database; name another file");
    EXPECT_EQ(complaint([&] { openForReading(text, options); }), "'" + text + "' is not a database; name another file");
    std::string after(content.size() + 1, '\0');
    std::ifstream stream(text);
    stream.read(after.data(), static_cast<std::streamsize>(after.size()));
    EXPECT_EQ(after.substr(0, static_cast<std::size_t>(stream.gcount())), content);

    const std::string foreign = folder.in("foreign.db");
    for (const char* const more : {"CREATE TABLE settings (name)", "ALTER TABLE settings ADD COLUMN value"}) {
        Database(foreign, Database::Access::Write).run(more);
        EXPECT_EQ(complaint([&] { openForWriting(foreign, options); }),
                  "'" + foreign + "' is not an export; name another database");
    }
    EXPECT_THAT(answers(foreign, "SELECT name FROM sqlite_master"), ElementsAre("settings"));
    EXPECT_THAT(answers(foreign, "PRAGMA journal_mode"), ElementsAre("delete"));
}

TEST_F(SqliteArchive, AMissingDatabaseIsNotRead) {
    EXPECT_EQ(complaint([&] { reader(); }), "cannot open the database '" + file + "'; check its name and its folder");
    const std::string deep = folder.in("no/such/archive.db");
    EXPECT_EQ(complaint([&] { openForWriting(deep, options); }),
              "cannot open the database '" + deep + "'; check its name and its folder");
}

TEST_F(SqliteArchive, AnotherVersionIsRefused) {
    exportOne();
    change("UPDATE settings SET value = '7' WHERE name = 'version'");
    const std::string message = "the export '" + file + "' has version 7, not " + std::to_string(exportVersion) +
                                "; export into another database";
    EXPECT_EQ(complaint([&] { writer(); }), message);
    EXPECT_EQ(complaint([&] { reader(); }), message);
}

TEST_F(SqliteArchive, TablesOfAnotherReleaseAreRefused) {
    exportOne();
    change("ALTER TABLE profiles DROP COLUMN psl");
    const std::string message =
        "the export '" + file +
        "' has no column psl in profiles, as those of other releases; export into another database";
    EXPECT_EQ(complaint([&] { writer(); }), message);
    EXPECT_EQ(complaint([&] { reader(); }), message);
    change("ALTER TABLE profiles ADD COLUMN psl TEXT; ALTER TABLE profiles ADD COLUMN later TEXT");
    EXPECT_EQ(complaint([&] { writer(); }), "");
    EXPECT_EQ(complaint([&] { reader(); }), "");
}

TEST_F(SqliteArchive, OtherSettingsAreRefused) {
    exportOne();
    const std::string message = "the export '" + file +
                                "' was made with the options '--pages', not '--lenient'; use "
                                "the same, or export into another database";
    EXPECT_EQ(complaint([&] { openForWriting(file, "--lenient"); }), message);
    EXPECT_EQ(complaint([&] { openForReading(file, "--lenient"); }), message);
}

TEST_F(SqliteArchive, OneProgramAtATimeWrites) {
    const auto archive = writer();
    EXPECT_EQ(complaint([&] { writer(); }), "another program uses '" + file + "'; try again when it has ended");
    archive->add(profiles, profileRow("1", "1"));
    archive->commit(std::vector{source(1)}, run(1));
    EXPECT_EQ(archive->state().sources.at(0).displays, 1U);
}

}  // namespace
