// Inserting and removing a letter: what the dialog shows for each, and what it sends.
#include "fixture.h"

namespace e2e {
namespace {

constexpr wchar_t kGeneral[] = L"dlgGeneral";

class Letters : public KeystrideTest {
protected:
    Window Open(const char* chord) { return OpenForm(chord, kGeneral, L"txtGeneral"); }
    Window OpenInsert() { return Open("Ctrl+Alt+Shift+F10"); }
    Window OpenRemove() { return Open("Ctrl+Alt+Shift+F11"); }
    void TypeInto(std::wstring_view box, std::wstring_view text) {
        ASSERT_TRUE(App().WaitForFocus(box));
        ASSERT_TRUE(App().Type(text));
        ASSERT_TRUE(App().WaitForText(kGeneral, box, text));
    }
    void Confirm() {
        ASSERT_TRUE(App().Press("Enter"));
        ASSERT_TRUE(App().WaitForNoForm(kGeneral));
        EXPECT_TRUE(App().WaitForFocus(L"rtfEdit"));
    }
};

TEST_F(Letters, InsertSendsTheLetterThatWasTyped) {
    StartUnsigned();
    ASSERT_TRUE(App().Type(L"kept"));
    const Window dialog = OpenInsert();
    EXPECT_EQ(dialog.Text(), L".");
    EXPECT_EQ(App().Text(kGeneral, L"rtfLessonTaskInfo"), L"One letter & no more.");
    EXPECT_EQ(App().Text(kGeneral, L"lblInstructions"), L"Type a letter.\r\nPress Enter.");
    for (const wchar_t* hidden : {L"lblBox1", L"lblBox2", L"txtGeneral2"})
        EXPECT_FALSE(dialog.Descendant(hidden).Shown()) << ToUtf8(hidden);
    EXPECT_EQ(dialog.Descendant(L"txtGeneral2").Style() & WS_TABSTOP, 0U);
    ASSERT_NO_FATAL_FAILURE(TypeInto(L"txtGeneral", L"x"));
    ASSERT_NO_FATAL_FAILURE(Confirm());
    EXPECT_EQ(App().Request(), L".\x05x");
    EXPECT_EQ(App().Text(L"frmMain", L"rtfEdit"), L"kept");
}

TEST_F(Letters, RemoveSendsTheSecondBoxWhateverTheFirstHolds) {
    StartUnsigned();
    const Window dialog = OpenRemove();
    EXPECT_EQ(dialog.Text(), L"..");
    for (const wchar_t* shown : {L"lblBox1", L"lblBox2", L"txtGeneral2"})
        EXPECT_TRUE(dialog.Descendant(shown).Shown()) << ToUtf8(shown);
    EXPECT_EQ(App().Text(kGeneral, L"lblBox1"), L"Box1");
    EXPECT_EQ(App().Text(kGeneral, L"lblBox2"), L"Box2");
    ASSERT_NO_FATAL_FAILURE(TypeInto(L"txtGeneral", L"a"));
    ASSERT_TRUE(App().Press("Tab"));
    ASSERT_NO_FATAL_FAILURE(TypeInto(L"txtGeneral2", L"b"));
    ASSERT_NO_FATAL_FAILURE(Confirm());
    EXPECT_EQ(App().Request(),
              L"..\x05"
              L"b");
}

TEST_F(Letters, AnEmptyBoxIsSentAsAnEmptyText) {
    StartUnsigned();
    ASSERT_TRUE(OpenInsert());
    ASSERT_NO_FATAL_FAILURE(Confirm());
    EXPECT_EQ(App().Request(), L".\x05");
    ASSERT_TRUE(OpenRemove());
    ASSERT_NO_FATAL_FAILURE(TypeInto(L"txtGeneral", L"only here"));
    ASSERT_NO_FATAL_FAILURE(Confirm());
    EXPECT_EQ(App().Request(), L"..\x05");
}

TEST_F(Letters, EveryWayOutIsACancel) {
    StartUnsigned();
    for (const bool insert : {true, false}) {
        const std::wstring cancelled = insert ? L".\x05\x04" : L"..\x05\x04";
        for (const char* way : {"Esc", "Alt+F4", "close", "button"}) {
            ASSERT_TRUE(insert ? OpenInsert() : OpenRemove());
            ASSERT_NO_FATAL_FAILURE(TypeInto(L"txtGeneral", L"n"));
            if (std::string_view(way) == "close")
                ASSERT_TRUE(App().Form(kGeneral).Post(WM_CLOSE));
            else if (std::string_view(way) == "button")
                ASSERT_TRUE(App().Control(kGeneral, L"CancelButton").Click());
            else
                ASSERT_TRUE(App().Press(way));
            ASSERT_TRUE(App().WaitForNoForm(kGeneral)) << way;
            EXPECT_TRUE(App().WaitForRequest(cancelled)) << way << ' ' << Readable(App().Request());
            EXPECT_TRUE(App().WaitForFocus(L"rtfEdit")) << way;
        }
    }
}

TEST_F(Letters, EveryOpeningStartsEmpty) {
    StartUnsigned();
    ASSERT_TRUE(OpenRemove());
    ASSERT_NO_FATAL_FAILURE(TypeInto(L"txtGeneral", L"a"));
    ASSERT_NO_FATAL_FAILURE(Confirm());
    ASSERT_TRUE(OpenInsert());
    EXPECT_EQ(App().Text(kGeneral, L"txtGeneral"), L"");
    EXPECT_FALSE(App().Control(kGeneral, L"txtGeneral2").Shown());
}

TEST_F(Letters, ControlASelectsTheBoxAndControlEscDoesNotCancel) {
    StartUnsigned();
    ASSERT_TRUE(OpenInsert());
    ASSERT_NO_FATAL_FAILURE(TypeInto(L"txtGeneral", L"abc"));
    ASSERT_TRUE(App().Press("Ctrl+Esc"));
    ASSERT_TRUE(App().Press("Ctrl+A"));
    ASSERT_TRUE(App().Type(L"z"));
    EXPECT_TRUE(App().WaitForText(kGeneral, L"txtGeneral", L"z"));
    ASSERT_NO_FATAL_FAILURE(Confirm());
    EXPECT_EQ(App().Request(), L".\x05z");
}

TEST_F(Letters, EnterInTheInformationIsOk) {
    StartUnsigned();
    ASSERT_TRUE(OpenInsert());
    ASSERT_NO_FATAL_FAILURE(TypeInto(L"txtGeneral", L"q"));
    ASSERT_TRUE(App().Press("Shift+Tab"));
    ASSERT_TRUE(App().WaitForFocus(L"rtfLessonTaskInfo"));
    EXPECT_TRUE(App().RichTextOf(kGeneral, L"rtfLessonTaskInfo").ReadOnly());
    ASSERT_NO_FATAL_FAILURE(Confirm());
    EXPECT_EQ(App().Request(), L".\x05q");
}

TEST_F(Letters, TextsOfAHandMadeFileAndAMissingOne) {
    StartUnsigned();
    WriteBytes(UserFolder() / L"KSGeneral.ini", "[Main]\r\nSingleRow=x\r\n");
    ASSERT_TRUE(OpenInsert());
    EXPECT_EQ(App().Text(kGeneral, L"rtfLessonTaskInfo"), L"singlerow caption not found");
    EXPECT_EQ(App().Text(kGeneral, L"lblInstructions"), L"instructions not found");
    ASSERT_NO_FATAL_FAILURE(CloseForm(kGeneral));
    std::filesystem::remove(UserFolder() / L"KSGeneral.ini");
    for (const char* chord : {"Ctrl+Alt+Shift+F10", "Ctrl+Alt+Shift+F11"}) {
        ASSERT_TRUE(App().Press(chord));
        ASSERT_NO_FATAL_FAILURE(ExpectErrorBox(L"File " + (UserFolder() / L"KSGeneral.ini").wstring() + L"not found."));
    }
}

}  // namespace
}  // namespace e2e
