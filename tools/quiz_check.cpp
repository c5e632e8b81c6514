// The rules for the catalogue of quizzes and its files.
#include <algorithm>
#include <cstdint>
#include <set>
#include <string>
#include <utility>

#include "shell/lesson_file.h"
#include "tools/data_check.h"
#include "tools/section_reader.h"
#include "win32/text.h"

namespace data_files {

namespace {

constexpr std::size_t kMaxSections = 100;
constexpr std::size_t kMaxQuestions = 99;

class QuizCheck {
public:
    QuizCheck(const IniFile& catalogue, std::span<const IniFile> quizFiles, std::wstring_view folder)
        : catalogue_(catalogue), folder_(folder) {
        for (const IniFile& file : quizFiles) files_.push_back({&file, {}});
    }

    Findings Check() {
        constexpr wchar_t kSection[] = L"Academics";
        SectionReader head(catalogue_, kSection, findings_);
        known_.insert(Heard(kSection));
        const std::int16_t count = head.Count(L"NbrOfSections", 1, kMaxSections);
        head.TellUnknownKeys();
        for (std::int16_t subject = 1; subject <= count; ++subject) CheckSubject(subject);
        // What a count that was not understood hides is no finding of its own.
        if (!head.CountsKnown() || !topicsKnown_) return std::move(findings_);
        TellUnknownSections(catalogue_, known_, findings_);
        for (const QuizFile& file : files_) {
            if (file.known.empty())
                findings_.push_back({file.file->name, kWholeFile, L"no topic names this file"});
            else
                TellUnknownSections(*file.file, file.known, findings_);
        }
        return std::move(findings_);
    }

private:
    struct QuizFile {
        const IniFile* file;
        std::set<std::wstring> known;
    };

    void CheckSubject(std::int16_t number) {
        const std::wstring name = lesson_file::TaskKey(L"SECTION_", number);
        known_.insert(Heard(name));
        SectionReader section(catalogue_, name, findings_);
        section.TellTwice(subjects_, section.Required(L"SECTION_NAME"));
        const std::int16_t count = section.Count(L"NbrOfTopics", 1, kMaxSections);
        Unique topics(L"topic");
        for (std::int16_t topic = 1; topic <= count; ++topic) {
            const std::wstring title = section.Required(lesson_file::TaskKey(L"TOPIC_NAME_", topic));
            section.TellTwice(topics, title);
            const std::wstring fileName = section.Required(lesson_file::TaskKey(L"FILE_NAME_", topic));
            if (!title.empty() && !fileName.empty()) CheckTopic(section, title, fileName);
        }
        section.TellUnknownKeys();
        topicsKnown_ = topicsKnown_ && section.CountsKnown();
    }

    void CheckTopic(SectionReader& section, const std::wstring& title, const std::wstring& fileName) {
        const std::wstring path = folder_ + L"/" + win32::ReplaceAll(fileName, L"\\", L"/");
        const auto found = std::find_if(files_.begin(), files_.end(),
                                        [&](const QuizFile& file) { return SameName(file.file->name, path); });
        if (found == files_.end()) {
            section.Tell(L"there is no file " + path);
            return;
        }
        const auto know = [&](const std::wstring& name) {
            if (found->known.insert(Heard(name)).second) return true;
            findings_.push_back({path, name, L"two topics or quizzes share this section"});
            return false;
        };
        if (!know(title)) return;
        SectionReader topic(*found->file, title, findings_);
        const std::int16_t count = topic.Count(L"NbrOfQuizzes", 1, kMaxSections);
        topic.TellUnknownKeys();
        topicsKnown_ = topicsKnown_ && topic.CountsKnown();
        Unique quizzes(L"quiz");
        for (std::int16_t quiz = 1; quiz <= count; ++quiz)
            if (const std::wstring name = lesson_file::TaskKey(title, quiz); know(name)) {
                SectionReader questions(*found->file, name, findings_);
                CheckQuiz(questions, quizzes);
            }
    }

    static void CheckQuiz(SectionReader& quiz, Unique& titles) {
        if (!quiz.Exists()) return;
        quiz.TellTwice(titles, quiz.Required(lesson_file::kTitleKey));
        const std::int16_t count = quiz.Count(L"NbrOfQuestions", 1, kMaxQuestions);
        Unique questions(L"question");
        for (std::int16_t number = 1; number <= count; ++number) {
            quiz.TellTwice(questions, quiz.Required(lesson_file::TaskKey(L"QUESTION_", number)));
            quiz.Required(lesson_file::TaskKey(L"ANSWER_", number));
            quiz.Required(lesson_file::TaskKey(L"HINT_", number));
        }
        quiz.TellUnknownKeys();
    }

    const IniFile& catalogue_;
    std::wstring folder_;
    std::vector<QuizFile> files_;
    std::set<std::wstring> known_;
    bool topicsKnown_ = true;
    Unique subjects_{L"subject"};
    Findings findings_;
};

}  // namespace

Findings CheckQuizzes(const IniFile& catalogue, std::span<const IniFile> quizFiles, std::wstring_view folder) {
    return QuizCheck(catalogue, quizFiles, folder).Check();
}

}  // namespace data_files
