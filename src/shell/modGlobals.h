// The session state that all windows share, and the marker characters.
#pragma once

#include <cstdint>
#include <string>

namespace modGlobals {

// The selection of the open picker: the numbers of the selected node's key.
inline std::int16_t gCurLessonNbr = 0;
inline std::int16_t gCurTaskNbr = 0;
inline std::int16_t gCurSubTaskNbr = 0;

// The numbers last handed over by a run request.
inline std::int16_t gRunLessonNbr = 0;
inline std::int16_t gRunTaskNbr = 0;
inline std::int16_t gRunSubTaskNbr = 0;

// The lesson that is being edited.
inline std::wstring gLessonTitle;
inline std::wstring gLessonIntro;
inline std::wstring gTaskTerminator = L"Space";
inline std::int16_t gTaskReps = 0;

// The task or dictation that is being edited.
inline std::wstring gEditTaskText;
inline std::wstring gEditTaskExplanation;
inline std::int16_t gEditTaskKind = 0;
inline std::wstring gEditDictationText;
inline std::wstring gDictationTitle;

/// Key prefix of the lesson list that is open, and the name of its run request.
inline std::wstring gLessonTreePrefix;

inline bool gQuizGiveHelp = false;

/// Separates fields in tree keys, request texts and spelled-out texts.
inline const std::wstring gSep = L"\x05";
inline const std::wstring gSep2 = L"\x05\x05";
/// Stands for CR LF inside one INI value.
inline const std::wstring gLineBreakMark = L"\x07";
/// Stands for TAB inside one INI value.
inline const std::wstring gMark6 = L"\x06";
/// The payload that says that nothing was chosen.
inline const std::wstring gNoSelection = L"\x04";

// Folders and files, set once at start-up; none ends in a backslash.
inline std::wstring gUserDataPath;
inline std::wstring gCommonDataPath;
inline std::wstring gDocumentsPath;
inline std::wstring gGeneralIni;
inline std::wstring gDialogTutorIni;
inline std::wstring gStudentRecordsPath;
inline std::wstring gQuizzesPath;
inline std::wstring gQuizzesIni;
inline std::wstring gTeachersQuizzesIni;
inline std::wstring gUserPrefsIni;
inline std::wstring gKeystrideIni;
inline std::wstring gLessonsIni;
inline std::wstring gDictationsIni;
inline std::wstring gTeachersLessonsIni;
inline std::wstring gTeachersDictationsIni;
inline std::wstring gUserInfoIni;

// The learner who is signed on.
inline std::wstring gUserName;
inline std::wstring gCustomLessonsIni;

// The switches of Keystride.ini.
inline bool gLanguageDefault = true;
inline bool gLanguageOne = false;
inline bool gLanguageTwo = false;
inline bool gMAGic = false;
inline bool gAdult = false;

[[nodiscard]] inline bool IsLanguageDefault() { return gLanguageDefault; }
[[nodiscard]] inline bool IsLanguageOne() { return gLanguageOne; }
[[nodiscard]] inline bool IsLanguageTwo() { return gLanguageTwo; }
[[nodiscard]] inline bool IsMAGicUser() { return gMAGic; }
[[nodiscard]] inline const std::wstring& GetUserName() { return gUserName; }

}  // namespace modGlobals
