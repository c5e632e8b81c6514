// The names of sections and keys and the node keys that lesson and dictation files share.
#include "shell/lesson_file.h"

#include <gtest/gtest.h>

#include "win32/error.h"

namespace unit {
namespace {

using namespace lesson_file;

TEST(SectionName, NumbersHaveAtLeastTwoDigits) {
    EXPECT_EQ(SectionName(7), L"L07");
    EXPECT_EQ(SectionName(10), L"L10");
    EXPECT_EQ(SectionName(123), L"L123");
    EXPECT_EQ(SectionName(0), L"L00");
    EXPECT_EQ(TaskKey(L"X_", 5), L"X_05");
    EXPECT_EQ(TaskKey(L"X_", 100), L"X_100");
}

TEST(TaskNodeKey, IsTheSectionAndTheTask) {
    EXPECT_EQ(TaskNodeKey(3, 12),
              L"L03\x05"
              L"12");
    EXPECT_EQ(TaskNodeKey(123, 5),
              L"L123\x05"
              L"05");
    EXPECT_EQ(TaskNodeKey(1, 100),
              L"L01\x05"
              L"100");
}

TEST(ParseNodeKey, ReadsTheNumbersBehindTheFirstCharacter) {
    const auto expect = [](const wchar_t* key, int lesson, int task, int subTask) {
        const Selection selection = ParseNodeKey(key);
        EXPECT_EQ(selection.lesson, lesson) << key;
        EXPECT_EQ(selection.task, task) << key;
        EXPECT_EQ(selection.subTask, subTask) << key;
    };
    expect(L"L03", 3, 0, 0);
    expect(
        L"L03\x05"
        L"12",
        3, 12, 0);
    expect(
        L"L123\x05"
        L"100\x05"
        L"7",
        123, 100, 7);
    expect(
        L"L01\x05"
        L"2\x05"
        L"3\x05"
        L"4",
        1, 2, 3);
    expect(L"X8", 8, 0, 0);
    expect(L"38", 8, 0, 0);
}

TEST(ParseNodeKey, WhatIsAbsentOrNoNumberIs0) {
    for (const wchar_t* key : {L"", L"L", L"Labc", L"L\x05", L"L\x05\x05", L"Lx\x05y\x05z"}) {
        const Selection selection = ParseNodeKey(key);
        EXPECT_EQ(selection.lesson, 0);
        EXPECT_EQ(selection.task, 0);
        EXPECT_EQ(selection.subTask, 0);
    }
    EXPECT_EQ(ParseNodeKey(L"L12abc\x05"
                           L"4x")
                  .lesson,
              12);
    EXPECT_EQ(ParseNodeKey(L"L12abc\x05"
                           L"4x")
                  .task,
              4);
    EXPECT_EQ(ParseNodeKey(L"L\x05"
                           L"5")
                  .task,
              5);
}

TEST(ParseNodeKey, ANumberOver16BitsIsError6) {
    EXPECT_EQ(ParseNodeKey(L"L32767").lesson, 32767);
    EXPECT_THROW(ParseNodeKey(L"L32768"), win32::AppError);
}

}  // namespace
}  // namespace unit
