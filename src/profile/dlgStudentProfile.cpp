// The student profile dialog.
#include "profile/dlgStudentProfile.h"

#include <algorithm>
#include <numeric>

#include "shell/channel.h"
#include "shell/modGlobals.h"
#include "shell/modUtils.h"
#include "win32/clock.h"
#include "win32/windows_api.h"

using namespace modGlobals;

namespace {

constexpr wchar_t kTextSection[] = L"StudentProfile";

// Points. Many controls have to fit on small screens; below the smallest size nobody could read them.
constexpr int kSmallestFont = 11;

// Twips.
constexpr int kMargin = 105;
constexpr int kSmallestGap = 60;
constexpr int kLargestGap = 240;
constexpr int kFrameMargin = 105;
constexpr int kOptionGap = 30;
constexpr int kOptionMark = 345;
constexpr int kFieldGap = 180;
constexpr int kLabelGap = 75;
constexpr int kListArrow = 480;
constexpr int kSmallestBox = 1500;
constexpr int kInfoPadding = 120;

// How many gaps between rows there are.
constexpr int kGaps = 5;

}  // namespace

dlgStudentProfile& dlgStudentProfile::Default() {
    static dlgStudentProfile form;
    return form;
}

dlgStudentProfile::dlgStudentProfile() : Dialog(L"dlgStudentProfile", IDD_STUDENT_PROFILE) {
    OKButton.OnClick = [this] { OnOKButtonClick(); };
    cmdSave.OnClick = [this] { Save(); };
    parts.buttons = {&OKButton, &cmdSave, &cmdPrint, &CancelButton};
}

void dlgStudentProfile::ShowStudentProfileDialog(const std::wstring& kind, const std::wstring& caption, int& result) {
    result = win32::kResultCancelled;
    const win32::UnloadAtExit unload(*this);
    Load();
    kind_ = kind;
    SetCaption(caption);
    result = ShowModal();
}

void dlgStudentProfile::OnLoad() {
    rtfLessonTaskInfo.SetText(modUtils::LoadLabel1Text(gGeneralIni, kTextSection, false));
    lblInstructions.SetText(modUtils::LoadInstructionsCaption(gGeneralIni, kTextSection));
    for (const win32::CheckButton* option : {&optMale, &optBrown, &optElementary}) option->SetChecked(true);
    FillLists();
}

void dlgStudentProfile::FillLists() {
    auto& [years, months, days, countries] = birthLists_;
    years.choices = modStudentProfile::BirthYears(win32::CurrentYear());
    months.choices = modStudentProfile::BirthMonths();
    days.choices = modStudentProfile::BirthDays();
    countries.choices = modStudentProfile::BirthCountries();
    for (const BirthList& birth : birthLists_)
        for (const modStudentProfile::Choice& choice : birth.choices) birth.list->Add(choice.shown);
}

std::wstring dlgStudentProfile::ValueOf(const win32::ComboBox& list) const {
    const auto* birth = std::find_if(birthLists_.begin(), birthLists_.end() - 1,
                                     [&](const BirthList& row) { return row.list == &list; });
    return modStudentProfile::ChosenValue(birth->choices, list.Selected(), list.Count());
}

void dlgStudentProfile::Save() const {
    const auto yesOrNo = [](const win32::CheckButton& box) { return box.IsChecked() ? L"Y" : L"N"; };
    modStudentProfile::StudentProfile profile;
    profile.birthYear = ValueOf(cmboBirthYear);
    profile.birthMonth = ValueOf(cmboBirthMonth);
    profile.birthDay = ValueOf(cmboBirthDay);
    profile.birthCountry = ValueOf(cmboBirthCountry);
    profile.sex = optMale.IsChecked() ? L"M" : L"F";
    profile.hair = ChosenOption(grids_[1]);
    profile.school = ChosenOption(grids_[2]);
    profile.food = txtFood.Text();
    profile.friendName = txtFriend.Text();
    profile.animal = txtAnimal.Text();
    profile.tvShow = txtTVShow.Text();
    profile.sports = yesOrNo(chkSports);
    profile.music = yesOrNo(chkMusic);
    profile.games = yesOrNo(chkGames);
    profile.other = yesOrNo(chkOther);
    modStudentProfile::SaveStudentProfile(profile);
}

void dlgStudentProfile::OnOKButtonClick() {
    channel::SendToScreenReader(kind_ + gSep + L"1");
    Save();
    Close(win32::kResultOk);
}

void dlgStudentProfile::Cancel() {
    channel::SendToScreenReader(kind_ + gSep + gNoSelection);
    Close(win32::kResultCancelled);
}

bool dlgStudentProfile::OnKeyDown(const win32::KeyEvent& key) {
    // In an open list Esc and Enter close the list; they must not throw the answers away.
    const bool dropped = std::any_of(birthLists_.begin(), birthLists_.end(),
                                     [](const BirthList& birth) { return birth.list->IsDropped(); });
    if (dropped && (key.virtualKey == VK_ESCAPE || key.virtualKey == VK_RETURN)) return false;
    return Dialog::OnKeyDown(key);
}

// ---- layout ---------------------------------------------------------------------------------------------------------

void dlgStudentProfile::OnLayout() {
    const win32::Box client = ClientTwips();
    Look look{};
    Extent needed;
    for (look.points = win32::kFontPoints;; --look.points) {
        look.gap = kSmallestGap;
        look.intro = FitIntro(look.points);
        needed = Arrange(look, nullptr);
        if (look.points == kSmallestFont || (needed.width <= client.width && needed.height <= client.height)) break;
    }
    const int spare = client.height - needed.height;
    look.gap = std::clamp(look.gap + spare / kGaps, kSmallestGap, kLargestGap);
    // No instructions are so long that they may push the answers out of the window.
    look.intro.height = std::max(look.intro.height + std::min(spare, 0), TextTwips(L"A", look.points).height);
    SetPoints(look.points);
    win32::Placer placer(*this);
    Arrange(look, &placer);
}

void dlgStudentProfile::SetPoints(int points) {
    rtfLessonTaskInfo.SetFontPoints(points);
    SetFontPoints(lblInstructions, points);
    SetFontPoints(frameBirthday, points);
    const auto setField = [&](const Field& field) {
        SetFontPoints(*field.label, points);
        SetFontPoints(*field.control, points);
    };
    const auto setGrid = [&](const OptionGrid& grid) {
        SetFontPoints(*grid.frame, points);
        for (const win32::CheckButton* option : grid.options) SetFontPoints(*option, points);
    };
    for (const BirthList& birth : birthLists_) setField(birth.field);
    for (const OptionGrid& grid : grids_) setGrid(grid);
    for (const Field& field : favourites_) setField(field);
    setGrid(hobbies_);
}

dlgStudentProfile::Extent dlgStudentProfile::Arrange(const Look& look, win32::Placer* placer) {
    const int points = look.points;
    const win32::Box client = ClientTwips();
    const int width = client.width - 2 * kMargin;
    const int rowHeight = RowHeight(points);
    int top = kMargin;

    // What the window is for: the short text and, beside it, the instructions.
    const auto& [infoWidth, introHeight] = look.intro;
    const int instructionsLeft = kMargin + infoWidth + kFieldGap;
    if (placer != nullptr) {
        placer->Put(rtfLessonTaskInfo, {kMargin, top, infoWidth, introHeight});
        placer->Put(lblInstructions, {instructionsLeft, top, width + kMargin - instructionsLeft, introHeight});
    }
    top += introHeight + look.gap;

    // The birthday's lists in one row.
    const int birthdayTop = TextTwips(L"A", points).height;
    const int birthdayHeight = birthdayTop + rowHeight + kFrameMargin;
    int left = kMargin + kFrameMargin;
    for (const BirthList& birth : birthLists_) {
        const int labelWidth = TextTwips(birth.field.label->Text(), points).width + kLabelGap;
        int listWidth = 0;
        for (const modStudentProfile::Choice& choice : birth.choices)
            listWidth = std::max(listWidth, TextTwips(choice.shown, points).width);
        const win32::Box row{left, top + birthdayTop, labelWidth + listWidth + kListArrow, rowHeight};
        if (placer != nullptr) PlaceField(*placer, birth.field, row, labelWidth, points);
        left = row.Right() + kFieldGap;
    }
    const int birthdayNeeds = left - kFieldGap + kFrameMargin + kMargin;
    if (placer != nullptr) placer->Put(frameBirthday, {kMargin, top, width, birthdayHeight});
    top += birthdayHeight + look.gap;

    // Three frames and the favourites below them at the left, the hobbies at the right.
    const Extent hobbies = GridExtent(hobbies_, points);
    const int leftWidth = width - hobbies.width - kSmallestGap;
    int gridsWidth = 0;
    int gridsHeight = 0;
    for (const OptionGrid& grid : grids_) {
        const Extent extent = GridExtent(grid, points);
        gridsWidth += extent.width;
        gridsHeight = std::max(gridsHeight, extent.height);
    }
    const int gridCount = static_cast<int>(grids_.size());
    const int gridGaps = (gridCount - 1) * kSmallestGap;
    const int extra = std::max(0, leftWidth - gridsWidth - gridGaps) / gridCount;
    const int blockHeight = std::max(gridsHeight + 2 * (look.gap + rowHeight), hobbies.height);
    if (placer != nullptr) {
        left = kMargin;
        for (const OptionGrid& grid : grids_) {
            const int gridWidth = GridExtent(grid, points).width + extra;
            PlaceGrid(*placer, grid, {left, top, gridWidth, gridsHeight}, points);
            left += gridWidth + kSmallestGap;
        }
        PlaceGrid(*placer, hobbies_, {kMargin + leftWidth + kSmallestGap, top, hobbies.width, blockHeight}, points);
    }
    const int fieldWidth = (leftWidth - kFieldGap) / 2;
    int favouritesNeed = 0;
    for (std::size_t i = 0; i < favourites_.size(); ++i) {
        const auto column = static_cast<int>(i % 2);
        const auto row = static_cast<int>(i / 2);
        // Both labels of a column are as wide as the wider one, so that their boxes stand below each other.
        const int labelWidth = kLabelGap + std::max(TextTwips(favourites_.at(i).label->Text(), points).width,
                                                    TextTwips(favourites_.at(i ^ 2U).label->Text(), points).width);
        favouritesNeed = std::max(favouritesNeed, 2 * (labelWidth + kSmallestBox) + kFieldGap);
        const int rowTop = top + gridsHeight + look.gap + row * (rowHeight + look.gap);
        if (placer != nullptr)
            PlaceField(*placer, favourites_.at(i),
                       {kMargin + column * (fieldWidth + kFieldGap), rowTop, fieldWidth, rowHeight}, labelWidth,
                       points);
    }
    const int leftNeeds = std::max(gridsWidth + gridGaps, favouritesNeed);
    top += blockHeight + look.gap;

    int buttonHeight = 0;
    for (const PlacedButton& placed : MeasureButtons(parts.buttons, kMargin, width)) {
        win32::Box box = placed.box;
        box.top = top;
        buttonHeight = box.height;
        if (placer != nullptr) placer->Put(*placed.button, box);
    }
    return {std::max(birthdayNeeds + kMargin, leftNeeds + kSmallestGap + hobbies.width + 2 * kMargin),
            top + buttonHeight + kMargin};
}

dlgStudentProfile::Intro dlgStudentProfile::FitIntro(int points) {
    constexpr int kSmallestShare = 30;  // percent
    constexpr int kLargestShare = 60;
    constexpr int kStep = 5;
    const int width = ClientTwips().width - 2 * kMargin;
    const std::wstring info = rtfLessonTaskInfo.Text();
    const std::wstring instructions = lblInstructions.Text();
    Intro best{};
    for (int share = kSmallestShare; share <= kLargestShare; share += kStep) {
        const int infoWidth = width * share / 100;
        const int infoHeight = WrappedHeight(info, infoWidth - 2 * kInfoPadding, points) + kInfoPadding;
        const int height = std::max(WrappedHeight(instructions, width - infoWidth - kFieldGap, points), infoHeight);
        if (best.height == 0 || height < best.height) best = {infoWidth, height};
    }
    return best;
}

int dlgStudentProfile::RowHeight(int points) { return TextTwips(L"A", points).height + win32::kBoxPadding; }

dlgStudentProfile::Extent dlgStudentProfile::GridExtent(const OptionGrid& grid, int points) {
    const int line = TextTwips(L"A", points).height;
    const std::vector<int> widths = ColumnWidths(grid, points);
    const int width = std::accumulate(widths.begin(), widths.end(), 0);
    const auto rows = static_cast<int>((grid.options.size() + grid.columns - 1) / grid.columns);
    return {std::max(width, TextTwips(grid.frame->Text(), points).width + kOptionMark) + 2 * kFrameMargin,
            line + rows * (line + kOptionGap) + kFrameMargin};
}

std::vector<int> dlgStudentProfile::ColumnWidths(const OptionGrid& grid, int points) {
    std::vector<int> widths(grid.columns);
    for (std::size_t i = 0; i < grid.options.size(); ++i) {
        int& width = widths[i % grid.columns];
        width = std::max(width, TextTwips(grid.options[i]->Text(), points).width + kOptionMark);
    }
    return widths;
}

void dlgStudentProfile::PlaceGrid(win32::Placer& placer, const OptionGrid& grid, const win32::Box& box, int points) {
    placer.Put(*grid.frame, box);
    const int line = TextTwips(L"A", points).height;
    std::vector<int> widths = ColumnWidths(grid, points);
    const int spare = box.width - 2 * kFrameMargin - std::accumulate(widths.begin(), widths.end(), 0);
    for (int& width : widths) width += spare / static_cast<int>(widths.size());
    int left = box.left + kFrameMargin;
    int top = box.top + line;
    for (std::size_t i = 0; i < grid.options.size(); ++i) {
        const int width = widths[i % grid.columns];
        placer.Put(*grid.options[i], {left, top, width, line + kOptionGap});
        left += width;
        if ((i + 1) % grid.columns == 0) {
            left = box.left + kFrameMargin;
            top += line + kOptionGap;
        }
    }
}

void dlgStudentProfile::PlaceField(win32::Placer& placer, const Field& field, const win32::Box& row, int labelWidth,
                                   int points) {
    const int line = TextTwips(L"A", points).height;
    placer.Put(*field.label, {row.left, row.top + (row.height - line) / 2, labelWidth - kLabelGap / 3, line});
    // A drop-down list has a height of its own.
    const bool isList = dynamic_cast<const win32::ComboBox*>(field.control) != nullptr;
    const int height = isList ? field.control->HeightTwips() : row.height;
    placer.Put(*field.control,
               {row.left + labelWidth, row.top + (row.height - height) / 2, row.width - labelWidth, height});
}

std::wstring dlgStudentProfile::ChosenOption(const OptionGrid& grid) {
    const auto chosen = std::find_if(grid.options.begin(), grid.options.end(),
                                     [](const win32::CheckButton* option) { return option->IsChecked(); });
    return chosen == grid.options.end() ? std::wstring() : (*chosen)->Text();
}
