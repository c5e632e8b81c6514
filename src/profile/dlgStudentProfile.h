// The student profile dialog: birth date and country, looks, school, favourites and hobbies of a learner.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "profile/modStudentProfile.h"
#include "resource_ids.h"
#include "win32/controls.h"
#include "win32/dialog.h"

class dlgStudentProfile final : public win32::Dialog {
public:
    static dlgStudentProfile& Default();

    /// Shows the dialog; `kind` is the name of its request. `result` is 1 when the profile was confirmed with OK, 2
    /// otherwise.
    void ShowStudentProfileDialog(const std::wstring& kind, const std::wstring& caption, int& result);

    win32::InfoText rtfLessonTaskInfo{*this, IDC_PROFILE_INFO, L"rtfLessonTaskInfo"};
    win32::Label lblInstructions{*this, IDC_PROFILE_INSTRUCTIONS, L"lblInstructions"};
    win32::Label frameBirthday{*this, IDC_PROFILE_BIRTHDAY, L"frameBirthday"};
    win32::Label lblBirthYear{*this, IDC_PROFILE_YEAR_NAME, L"lblBirthYear"};
    win32::ComboBox cmboBirthYear{*this, IDC_PROFILE_YEAR, L"cmboBirthYear"};
    win32::Label lblBirthMonth{*this, IDC_PROFILE_MONTH_NAME, L"lblBirthMonth"};
    win32::ComboBox cmboBirthMonth{*this, IDC_PROFILE_MONTH, L"cmboBirthMonth"};
    win32::Label lblBirthDay{*this, IDC_PROFILE_DAY_NAME, L"lblBirthDay"};
    win32::ComboBox cmboBirthDay{*this, IDC_PROFILE_DAY, L"cmboBirthDay"};
    win32::Label lblBirthCountry{*this, IDC_PROFILE_COUNTRY_NAME, L"lblBirthCountry"};
    win32::ComboBox cmboBirthCountry{*this, IDC_PROFILE_COUNTRY, L"cmboBirthCountry"};
    win32::Label frameSex{*this, IDC_PROFILE_SEX, L"frameSex"};
    win32::CheckButton optMale{*this, IDC_PROFILE_MALE, L"optMale"};
    win32::CheckButton optFemale{*this, IDC_PROFILE_FEMALE, L"optFemale"};
    win32::Label frameHairColor{*this, IDC_PROFILE_HAIR, L"frameHairColor"};
    win32::CheckButton optBrown{*this, IDC_PROFILE_BROWN, L"optBrown"};
    win32::CheckButton optBlonde{*this, IDC_PROFILE_BLONDE, L"optBlonde"};
    win32::CheckButton optBlack{*this, IDC_PROFILE_BLACK, L"optBlack"};
    win32::CheckButton optRed{*this, IDC_PROFILE_RED, L"optRed"};
    win32::Label frameSchool{*this, IDC_PROFILE_SCHOOL, L"frameSchool"};
    win32::CheckButton optElementary{*this, IDC_PROFILE_ELEMENTARY, L"optElementary"};
    win32::CheckButton optJuniorHigh{*this, IDC_PROFILE_JUNIOR_HIGH, L"optJuniorHigh"};
    win32::CheckButton optHighSchool{*this, IDC_PROFILE_HIGH_SCHOOL, L"optHighSchool"};
    win32::CheckButton optCollege{*this, IDC_PROFILE_COLLEGE, L"optCollege"};
    win32::Label lblFood{*this, IDC_PROFILE_FOOD_NAME, L"lblFood"};
    win32::ValueBox txtFood{*this, IDC_PROFILE_FOOD, L"txtFood"};
    win32::Label lblFriend{*this, IDC_PROFILE_FRIEND_NAME, L"lblFriend"};
    win32::ValueBox txtFriend{*this, IDC_PROFILE_FRIEND, L"txtFriend"};
    win32::Label lblAnimal{*this, IDC_PROFILE_ANIMAL_NAME, L"lblAnimal"};
    win32::ValueBox txtAnimal{*this, IDC_PROFILE_ANIMAL, L"txtAnimal"};
    win32::Label lblTVShow{*this, IDC_PROFILE_TV_SHOW_NAME, L"lblTVShow"};
    win32::ValueBox txtTVShow{*this, IDC_PROFILE_TV_SHOW, L"txtTVShow"};
    win32::Label frameHobbies{*this, IDC_PROFILE_HOBBIES, L"frameHobbies"};
    win32::CheckButton chkSports{*this, IDC_PROFILE_SPORTS, L"chkSports"};
    win32::CheckButton chkMusic{*this, IDC_PROFILE_MUSIC, L"chkMusic"};
    win32::CheckButton chkGames{*this, IDC_PROFILE_GAMES, L"chkGames"};
    win32::CheckButton chkOther{*this, IDC_PROFILE_OTHER, L"chkOther"};
    win32::Button cmdSave{*this, IDC_PROFILE_SAVE, L"cmdSave"};
    win32::Button cmdPrint{*this, IDC_PROFILE_PRINT, L"cmdPrint"};

private:
    /// A label and the list or box that it names.
    struct Field {
        const win32::Label* label;
        const win32::Control* control;
    };
    /// A drop-down list of the birthday and what its entries stand for.
    struct BirthList {
        Field field;
        const win32::ComboBox* list;
        std::vector<modStudentProfile::Choice> choices;
    };
    /// A frame and its options, `columns` side by side.
    struct OptionGrid {
        const win32::Label* frame;
        std::vector<const win32::CheckButton*> options;
        std::size_t columns;
    };
    /// What a layout needs, in twips.
    struct Extent {
        int width = 0;
        int height = 0;
    };
    /// The row of the short text and the instructions, in twips.
    struct Intro {
        int infoWidth;
        int height;
    };
    struct Look {
        int points;
        int gap;  // between two rows, twips
        Intro intro;
    };

    dlgStudentProfile();

    void OnLoad() override;
    void OnLayout() override;
    win32::Control& FirstFocus() override { return cmboBirthYear; }
    bool OnKeyDown(const win32::KeyEvent& key) override;
    void Cancel() override;

    void FillLists();
    [[nodiscard]] std::wstring ValueOf(const win32::ComboBox& list) const;
    /// The text of the option that is selected, which is also what is stored; "" when none is.
    [[nodiscard]] static std::wstring ChosenOption(const OptionGrid& grid);
    void Save() const;
    void OnOKButtonClick();

    /// Works out where everything goes and places it, when there is a placer; returns the room that it takes.
    Extent Arrange(const Look& look, win32::Placer* placer);
    /// Shares the width between the two texts so that both are seen in the least height.
    Intro FitIntro(int points);
    Extent GridExtent(const OptionGrid& grid, int points);
    std::vector<int> ColumnWidths(const OptionGrid& grid, int points);
    void PlaceGrid(win32::Placer& placer, const OptionGrid& grid, const win32::Box& box, int points);
    /// Places a label and its control in a row; the label has `labelWidth`, the control the rest.
    void PlaceField(win32::Placer& placer, const Field& field, const win32::Box& row, int labelWidth, int points);
    int RowHeight(int points);
    void SetPoints(int points);

    // In the order of the dialog.
    std::array<BirthList, 4> birthLists_{{{{&lblBirthYear, &cmboBirthYear}, &cmboBirthYear, {}},
                                          {{&lblBirthMonth, &cmboBirthMonth}, &cmboBirthMonth, {}},
                                          {{&lblBirthDay, &cmboBirthDay}, &cmboBirthDay, {}},
                                          {{&lblBirthCountry, &cmboBirthCountry}, &cmboBirthCountry, {}}}};
    const std::array<OptionGrid, 3> grids_{
        {{&frameSex, {&optMale, &optFemale}, 1},
         {&frameHairColor, {&optBrown, &optBlonde, &optBlack, &optRed}, 2},
         {&frameSchool, {&optElementary, &optJuniorHigh, &optHighSchool, &optCollege}, 2}}};
    const std::array<Field, 4> favourites_{
        {{&lblFood, &txtFood}, {&lblFriend, &txtFriend}, {&lblAnimal, &txtAnimal}, {&lblTVShow, &txtTVShow}}};
    const OptionGrid hobbies_{&frameHobbies, {&chkSports, &chkMusic, &chkGames, &chkOther}, 1};

    std::wstring kind_;
};
