// Checks that several tests make of a window: its place, the layout rules, nothing overlapping, nothing clipped.
#include "checks.h"

#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

#include "driver/text.h"

namespace e2e {

namespace {

constexpr int kRounding = 1;

std::string NameForReport(const Window& window) {
    const std::wstring name = window.Name();
    return ToUtf8(name.empty() ? window.ClassName() + L" " + std::to_wstring(window.Id()) : name);
}

RECT RectOf(const Window& form, std::wstring_view name) {
    const Window control = form.Descendant(name);
    EXPECT_TRUE(control) << ToUtf8(name) << " is missing";
    return control ? control.RectInParent() : RECT{};
}

int Height(const RECT& rect) { return rect.bottom - rect.top; }

int Width(const RECT& rect) { return rect.right - rect.left; }

bool Overlap(const RECT& left, const RECT& right) {
    RECT common{};
    return IntersectRect(&common, &left, &right) != FALSE;
}

bool Contains(const RECT& outer, const RECT& inner) {
    return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

std::string Show(const RECT& rect) {
    return "[" + std::to_string(rect.left) + "," + std::to_string(rect.top) + " " + std::to_string(Width(rect)) + "x" +
           std::to_string(Height(rect)) + "]";
}

/// The title spans the whole window and the subtitle stands in its row.
bool ShareTheTitleRow(const Window& left, const Window& right) {
    const std::wstring names = left.Name() + L"/" + right.Name();
    return names == L"lblTitle/lblSubTitle" || names == L"lblSubTitle/lblTitle";
}

/// The size of a text in Arial; lines break at the width when that is not 0.
SIZE TextSize(const std::wstring& text, int points, int dpi, int width) {
    const HDC screen = GetDC(nullptr);
    const HFONT font = CreateFontW(-MulDiv(points, dpi, 72), 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                                   OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH, L"Arial");
    const HGDIOBJ previous = SelectObject(screen, font);
    RECT rect{0, 0, width, 0};
    DrawTextW(screen, text.c_str(), static_cast<int>(text.size()), &rect,
              DT_CALCRECT | (width == 0 ? 0U : static_cast<UINT>(DT_WORDBREAK)));
    SelectObject(screen, previous);
    DeleteObject(font);
    ReleaseDC(nullptr, screen);
    return {rect.right, rect.bottom};
}

}  // namespace

int Pixels(double twips, int dpi) {
    constexpr double kTwipsPerInch = 1440.0;
    return static_cast<int>(std::lround(twips * dpi / kTwipsPerInch));
}

RECT ScreenAboveTaskbar() {
    RECT area{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    RECT taskbar{};
    const HWND window = FindWindowW(L"Shell_TrayWnd", nullptr);
    EXPECT_NE(window, nullptr) << "there is no taskbar: the desktop must be named shell";
    GetWindowRect(window, &taskbar);
    EXPECT_GT(Height(taskbar), 0);
    area.bottom -= Height(taskbar);
    return area;
}

void CheckMainWindowPlace(const Window& main) {
    const RECT screen = ScreenAboveTaskbar();
    const RECT rect = main.ScreenRect();
    EXPECT_EQ(rect.left, 0);
    EXPECT_EQ(rect.top, 0);
    EXPECT_NEAR(Width(rect), Width(screen), kRounding);
    EXPECT_NEAR(Height(rect), Height(screen), kRounding);
}

void CheckMainWindowLayout(const Window& main, int dpi) {
    const SIZE inner = main.ClientSize();
    const RECT commands = RectOf(main, L"fraCommands");
    const RECT appearance = RectOf(main, L"fraAppearance");
    const RECT title = RectOf(main, L"lblTitle");
    const RECT subTitle = RectOf(main, L"lblSubTitle");
    const RECT info = RectOf(main, L"rtfLessonTaskInfo");
    const RECT text = RectOf(main, L"rtfMain");
    const RECT edit = RectOf(main, L"rtfEdit");

    for (const RECT& wide : {title, info, text, edit}) {
        EXPECT_EQ(wide.left, 0);
        EXPECT_NEAR(Width(wide), inner.cx, kRounding);
    }
    EXPECT_EQ(commands.top, 0) << "the command frame is at the top";
    EXPECT_NEAR(title.top, commands.bottom, kRounding) << "the title is under the command frame";
    EXPECT_NEAR(info.top, Height(commands) + Height(title), kRounding);
    EXPECT_NEAR(text.top, info.bottom + Pixels(5, dpi), kRounding);
    const double rest = inner.cy - Height(title) - Height(commands) - Height(info) - Pixels(20, dpi);
    ASSERT_GT(rest, 1.0) << "the window is too small for this check";
    EXPECT_NEAR(Height(text), 0.4 * rest, kRounding + 1);
    EXPECT_NEAR(edit.top, text.bottom + Pixels(5, dpi), kRounding);
    EXPECT_NEAR(Height(edit), 0.6 * rest, kRounding + 1);

    EXPECT_EQ(appearance.top, commands.top) << "the appearance frame stands beside the command frame";
    EXPECT_EQ(Height(appearance), Height(commands));
    EXPECT_GE(appearance.left, commands.right);
    EXPECT_GE(subTitle.top, title.top) << "the subtitle stands in the title's row";
    EXPECT_LE(subTitle.bottom, title.bottom);
    EXPECT_LT(subTitle.left, subTitle.right);
}

void CheckDialogPlace(const Window& dialog, int dpi) {
    const RECT screen = ScreenAboveTaskbar();
    const RECT rect = dialog.ScreenRect();
    EXPECT_NEAR(rect.left, Pixels(300, dpi), kRounding);
    EXPECT_NEAR(rect.top, Pixels(300, dpi), kRounding);
    EXPECT_NEAR(Width(rect), Width(screen) - Pixels(600, dpi), kRounding);
    EXPECT_NEAR(Height(rect), Height(screen) - Pixels(600, dpi), kRounding);
}

void CheckPickerLayout(const Window& picker, int dpi) {
    const SIZE inner = picker.ClientSize();
    const RECT tree = RectOf(picker, L"tvTasks");
    const RECT okButton = RectOf(picker, L"OKButton");
    const double buttonHeight = Height(okButton);
    EXPECT_NEAR(tree.left, Pixels(200, dpi), kRounding);
    EXPECT_NEAR(tree.top, Pixels(200, dpi), kRounding);
    EXPECT_NEAR(Width(tree), inner.cx - Pixels(800, dpi), kRounding);
    const Window notice = picker.Descendant(L"lblNotice");
    const double noticeHeight = notice && notice.Shown() ? Height(notice.RectInParent()) : 0;
    EXPECT_NEAR(Height(tree), inner.cy - tree.top - 1.75 * buttonHeight - noticeHeight, kRounding + 1);
    for (const wchar_t* name : {L"OKButton", L"CancelButton", L"cmdAddLesson", L"cmdEditLesson", L"cmdRemoveLesson"}) {
        if (!picker.Descendant(name).Shown()) continue;
        const RECT button = RectOf(picker, name);
        EXPECT_NEAR(button.top, tree.bottom + noticeHeight + 0.25 * buttonHeight, kRounding + 1) << ToUtf8(name);
        EXPECT_EQ(Height(button), Height(okButton)) << ToUtf8(name);
    }
}

void CheckNothingOverlaps(const Window& form) {
    std::vector<Window> visible = form.Children();
    std::erase_if(visible, [](const Window& window) { return !window.Shown(); });
    for (std::size_t first = 0; first < visible.size(); ++first) {
        for (std::size_t second = first + 1; second < visible.size(); ++second) {
            const RECT left = visible[first].RectInParent();
            const RECT right = visible[second].RectInParent();
            if (!Overlap(left, right) || ShareTheTitleRow(visible[first], visible[second])) continue;
            if (visible[first].IsGroupBox() && Contains(left, right)) continue;
            ADD_FAILURE() << NameForReport(visible[first]) << ' ' << Show(left) << " overlaps "
                          << NameForReport(visible[second]) << ' ' << Show(right);
        }
    }
}

void CheckEverythingInside(const Window& form) {
    const SIZE size = form.ClientSize();
    const RECT inner{0, 0, size.cx, size.cy};
    for (const Window& control : form.Children()) {
        if (!control.Shown()) continue;
        const RECT rect = control.RectInParent();
        EXPECT_TRUE(Contains(inner, rect))
            << NameForReport(control) << ' ' << Show(rect) << " leaves the form " << Show(inner);
        EXPECT_GT(Width(rect), 0) << NameForReport(control);
        EXPECT_GT(Height(rect), 0) << NameForReport(control);
    }
}

void CheckNothingClipped(const Window& form, int points, int dpi) {
    for (const Window& control : form.Children()) {
        if (!control.Shown() || (!control.IsStatic() && control.ClassName() != L"Button")) continue;
        const std::wstring text = control.Text();
        const SIZE room = control.ClientSize();
        const bool wraps = control.IsStatic() || (control.Style() & BS_MULTILINE) != 0;
        const SIZE need = TextSize(text, points, dpi, wraps ? room.cx : 0);
        EXPECT_LE(need.cx, room.cx) << NameForReport(control) << " is too narrow for '" << Readable(text) << "'";
        EXPECT_LE(need.cy, room.cy) << NameForReport(control) << " is too low for '" << Readable(text) << "'";
    }
}

void CheckSpokenNames(const Window& form, const SpokenNames& names) {
    SpokenNames found;
    for (const Window& control : form.Children()) {
        if (!control.IsTextOrListControl()) continue;
        const Window label = control.Previous();
        found.emplace_back(control.Name(), label && label.IsStatic() ? label.Text() : L"(no static before it)");
    }
    EXPECT_EQ(found, names);
}

void CheckGroup(const Window& form, std::wstring_view group, const std::vector<std::wstring>& members) {
    const Window box = form.Descendant(group);
    ASSERT_TRUE(box && box.IsGroupBox()) << ToUtf8(group);
    Window next = box;
    for (const std::wstring& member : members) {
        next = next.Next();
        EXPECT_EQ(next.Name(), member) << "members follow their group box directly";
        EXPECT_EQ(next.Parent(), form) << "a group box is a sibling, not a parent";
        EXPECT_TRUE(Contains(box.RectInParent(), next.RectInParent())) << ToUtf8(member) << " leaves its group box";
    }
}

}  // namespace e2e
