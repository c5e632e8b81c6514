// The tasks of the lesson that is being edited: what is taken, what is refused, and what moves when one goes.
#include "lessons/task_table.h"

#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "unit/fixture.h"
#include "win32/error.h"

namespace unit {
namespace {

using modTyping::TaskRow;
using modTyping::TaskTable;

constexpr std::size_t kLastRow = 100;

TaskRow Stored(const std::wstring& text) { return {L"spelled " + text, L"about " + text, L"1", text, false, false}; }

/// A table of so many tasks written now, with the texts "task 1", "task 2" and so on.
TaskTable Filled(std::size_t count) {
    TaskTable table;
    for (std::size_t task = 1; task <= count; ++task) {
        const std::wstring number = std::to_wstring(task);
        EXPECT_TRUE(table.Append(L"1", L"task " + number, L"about " + number));
    }
    return table;
}

std::vector<std::wstring> Texts(const TaskTable& table) {
    std::vector<std::wstring> texts;
    for (std::size_t row = 0; row < table.Count(); ++row) texts.push_back(table[row].text);
    return texts;
}

TEST(TaskTable, IsEmptyAtFirst) {
    const TaskTable table;
    EXPECT_EQ(table.Count(), 0U);
    EXPECT_EQ(table.UsedRows(), 0U);
    EXPECT_FALSE(table.IsFull());
    EXPECT_TRUE(table.RowsWithText().empty());
    for (std::size_t row = 0; row <= kLastRow; ++row) EXPECT_EQ(table[row], TaskRow{}) << row;
}

TEST(TaskTable, HasTheRows0To100AndNoOther) {
    const TaskTable table;
    EXPECT_FALSE(table[kLastRow].InUse());
    EXPECT_THROW(static_cast<void>(table[kLastRow + 1]), std::out_of_range);
}

TEST(TaskTable, StoredTaskKeepsWhatWasRead) {
    TaskTable table;
    const TaskRow row{L"a\x05", L"why", L"4", L"a", true, true};
    EXPECT_TRUE(table.Load(row));
    EXPECT_EQ(table[0], row) << "the kind is not changed on loading, nor are the marks of cut values";
    EXPECT_EQ(table.Count(), 1U);
    EXPECT_EQ(table.UsedRows(), 1U);
}

TEST(TaskTable, StoredTaskWithATextAloneCountsAsInUse) {
    TaskTable table;
    EXPECT_TRUE(table.Load({L"", L"", L"1", L"only text", false, false}));
    EXPECT_TRUE(table[0].InUse());
    EXPECT_EQ(table[0].text, L"only text");
    EXPECT_EQ(table.UsedRows(), 1U);
    EXPECT_EQ(table.RowsWithText(), std::vector<std::size_t>{0});
}

TEST(TaskTable, StoredTaskWithAnExplanationAloneCountsAsInUse) {
    TaskTable table;
    EXPECT_TRUE(table.Load({L"", L"only told", L"", L"", false, false}));
    EXPECT_TRUE(table[0].InUse());
    EXPECT_EQ(table[0].explanation, L"only told");
    EXPECT_EQ(table.UsedRows(), 1U);
    EXPECT_TRUE(table.RowsWithText().empty()) << "there is no text to show";
}

TEST(TaskTable, StoredTaskWithASpellingAloneCountsAsInUseAndKeepsIt) {
    TaskTable table;
    EXPECT_TRUE(table.Load({L"a\x05", L"", L"", L"", false, false}));
    EXPECT_EQ(table[0].spelling, L"a\x05");
    EXPECT_EQ(table.UsedRows(), 1U);
}

TEST(TaskTable, StoredTaskWithNothingIsLeftOutAndTheNextTakesItsRow) {
    TaskTable table;
    EXPECT_TRUE(table.Load(Stored(L"one")));
    EXPECT_FALSE(table.Load({L"", L"", L"1", L"", false, false})) << "a kind alone is no task";
    EXPECT_TRUE(table.Load(Stored(L"three")));
    EXPECT_EQ(Texts(table), (std::vector<std::wstring>{L"one", L"three"}));
    EXPECT_EQ(table.Count(), 2U);
}

TEST(TaskTable, HundredAndFirstStoredTaskIsTakenButNotSaved) {
    TaskTable table;
    for (std::size_t task = 1; task <= kLastRow + 1; ++task) EXPECT_TRUE(table.Load(Stored(std::to_wstring(task))));
    EXPECT_EQ(table.Count(), 101U);
    EXPECT_EQ(table[kLastRow].text, L"101");
    EXPECT_EQ(table.UsedRows(), 100U);
    EXPECT_TRUE(table.IsFull());
}

TEST(TaskTable, HundredAndSecondStoredTaskIsError9) {
    TaskTable table;
    for (std::size_t task = 1; task <= kLastRow + 1; ++task) table.Load(Stored(std::to_wstring(task)));
    EXPECT_FALSE(table.Load({})) << "one with nothing is left out before it needs a row";
    const win32::AppError error = RaisedBy([&] { table.Load(Stored(L"102")); });
    EXPECT_EQ(error.Number(), 9);
    EXPECT_EQ(error.Description(), L"Subscript out of range");
    EXPECT_EQ(error.Source(), L"LoadTaskForEdit");
    EXPECT_EQ(table.Count(), 101U);
}

TEST(TaskTable, NewTaskIsMarkedAsUsed) {
    TaskTable table;
    EXPECT_TRUE(table.Append(L"5", L"Control+C", L"Copies."));
    EXPECT_EQ(table[0], (TaskRow{L"task spelling", L"Copies.", L"5", L"Control+C", false, false}));
}

TEST(TaskTable, NewTaskWithoutTextIsInUse) {
    TaskTable table;
    EXPECT_TRUE(table.Append(L"1", L"", L""));
    EXPECT_EQ(table.Count(), 1U);
    EXPECT_EQ(table.UsedRows(), 1U);
    EXPECT_TRUE(table.RowsWithText().empty());
}

TEST(TaskTable, HundredTasksFitAndTheHundredAndFirstIsRefused) {
    TaskTable table = Filled(99);
    EXPECT_FALSE(table.IsFull());
    EXPECT_TRUE(table.Append(L"1", L"task 100", L""));
    EXPECT_TRUE(table.IsFull());
    EXPECT_FALSE(table.Append(L"1", L"task 101", L"lost"));
    EXPECT_EQ(table.Count(), 100U);
    EXPECT_EQ(table.UsedRows(), 100U);
    EXPECT_EQ(table[kLastRow], TaskRow{}) << "the refused task leaves no trace";
    EXPECT_EQ(table[99].text, L"task 100");
}

TEST(TaskTable, ThereIsRoomAgainAfterDeletingOneOfAHundred) {
    TaskTable table = Filled(100);
    table.Delete(0);
    EXPECT_FALSE(table.IsFull());
    EXPECT_TRUE(table.Append(L"1", L"new", L""));
    EXPECT_EQ(table[99].text, L"new");
    EXPECT_EQ(table[0].text, L"task 2");
}

TEST(TaskTable, ReplacingChangesOneRowAndForgetsThatItWasCut) {
    TaskTable table;
    for (const wchar_t* text : {L"one", L"two", L"three"}) {
        TaskRow row = Stored(text);
        row.textCut = true;
        row.explanationCut = true;
        table.Load(row);
    }
    table.Replace(1, L"3", L"two again", L"new");
    EXPECT_EQ(table[1], (TaskRow{L"task spelling", L"new", L"3", L"two again", false, false}));
    EXPECT_EQ(table[0].spelling, L"spelled one");
    EXPECT_TRUE(table[0].textCut);
    EXPECT_TRUE(table[2].explanationCut);
    EXPECT_EQ(table.Count(), 3U);
}

TEST(TaskTable, DeletingMovesTheLaterRowsUpWithAllTheirColumns) {
    TaskTable table;
    table.Load(Stored(L"one"));
    table.Load(Stored(L"two"));
    TaskRow third{L"t\x05", L"third", L"4", L"three", true, false};
    table.Load(third);
    table.Delete(1);
    EXPECT_EQ(Texts(table), (std::vector<std::wstring>{L"one", L"three"}));
    EXPECT_EQ(table[1], third);
    EXPECT_EQ(table[2], TaskRow{});
}

TEST(TaskTable, DeletingTheFirstAMiddleAndTheLastOfFour) {
    for (const auto& [row, left] :
         std::vector<std::pair<std::size_t, std::vector<std::wstring>>>{{0, {L"task 2", L"task 3", L"task 4"}},
                                                                        {2, {L"task 1", L"task 2", L"task 4"}},
                                                                        {3, {L"task 1", L"task 2", L"task 3"}}}) {
        TaskTable table = Filled(4);
        table.Delete(row);
        EXPECT_EQ(Texts(table), left) << row;
        EXPECT_EQ(table.UsedRows(), 3U);
        EXPECT_EQ(table[3], TaskRow{}) << "the row behind the last task is free again";
    }
}

TEST(TaskTable, DeletingTheOnlyTaskLeavesNothing) {
    TaskTable table = Filled(1);
    table.Delete(0);
    EXPECT_EQ(table.Count(), 0U);
    EXPECT_EQ(table.UsedRows(), 0U);
    EXPECT_EQ(table[0], TaskRow{});
}

TEST(TaskTable, DeletingMovesRow100UpAndEmptiesIt) {
    TaskTable table;
    for (std::size_t task = 1; task <= kLastRow + 1; ++task) table.Load(Stored(std::to_wstring(task)));
    table.Delete(40);
    EXPECT_EQ(table[40].text, L"42");
    EXPECT_EQ(table[99].text, L"101") << "a task that was not saved before is saved now";
    EXPECT_EQ(table[kLastRow], TaskRow{});
    EXPECT_EQ(table.Count(), 100U);
}

TEST(TaskTable, DeletingRow100EmptiesItAlone) {
    TaskTable table;
    for (std::size_t task = 1; task <= kLastRow + 1; ++task) table.Load(Stored(std::to_wstring(task)));
    table.Delete(kLastRow);
    EXPECT_EQ(table[kLastRow], TaskRow{});
    EXPECT_EQ(table[99].text, L"100");
    EXPECT_EQ(table.Count(), 100U);
}

TEST(TaskTable, DeletingARowWithoutATaskChangesNothing) {
    TaskTable table = Filled(2);
    table.Delete(2);
    table.Delete(kLastRow);
    EXPECT_EQ(Texts(table), (std::vector<std::wstring>{L"task 1", L"task 2"}));
}

TEST(TaskTable, RowsWithoutTextAreSkippedWhenTheListIsRefilled) {
    TaskTable table;
    table.Load(Stored(L"one"));
    table.Load({L"s\x05", L"", L"1", L"", false, false});
    table.Load({L"", L"told", L"1", L"", false, false});
    table.Load(Stored(L"four"));
    EXPECT_EQ(table.RowsWithText(), (std::vector<std::size_t>{0, 3}));
    EXPECT_EQ(table.Count(), 4U);
}

TEST(TaskTable, RefillShowsRow100Too) {
    TaskTable table;
    for (std::size_t task = 1; task <= kLastRow + 1; ++task) table.Load(Stored(std::to_wstring(task)));
    ASSERT_EQ(table.RowsWithText().size(), 101U);
    EXPECT_EQ(table.RowsWithText().back(), kLastRow);
}

}  // namespace
}  // namespace unit
