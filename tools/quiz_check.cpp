// The rules for the catalogue of quizzes and its files.
#include <algorithm>
#include <cstdint>
#include <set>
#include <string>
#include <utility>

#include "academics/modAcademics.h"
#include "shell/lesson_file.h"
#include "tools/data_check.h"
#include "tools/section_reader.h"
#include "win32/text.h"

namespace data_files {

namespace {

constexpr std::size_t kMaxSections = 100;
constexpr std::size_t kMaxQuestions = 99;

constexpr wchar_t kListSection[] = L"Academics";
constexpr wchar_t kSubjectCountKey[] = L"NbrOfSections";
constexpr wchar_t kNameKey[] = L"SECTION_NAME";
constexpr wchar_t kTopicCountKey[] = L"NbrOfTopics";
constexpr wchar_t kFileKey[] = L"FILE_NAME_";
constexpr wchar_t kQuizCountKey[] = L"NbrOfQuizzes";

/// The path of a quiz file as the findings name it.
std::wstring FilePath(std::wstring_view folder, std::wstring_view fileName) {
    return std::wstring(folder) + L"/" + win32::ReplaceAll(fileName, L"\\", L"/");
}

class QuizCheck {
public:
    QuizCheck(const IniFile& catalogue, std::span<const IniFile> quizFiles, std::wstring_view folder)
        : catalogue_(catalogue), folder_(folder) {
        for (const IniFile& file : quizFiles) files_.push_back({&file, {}});
    }

    Findings Check() {
        SectionReader head(catalogue_, kListSection, findings_);
        known_.insert(Heard(kListSection));
        const std::int16_t count = head.Count(kSubjectCountKey, 1, kMaxSections);
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
        const std::wstring name = modAcademics::SectionKey(number);
        known_.insert(Heard(name));
        SectionReader section(catalogue_, name, findings_);
        section.TellTwice(subjects_, section.Required(kNameKey));
        const std::int16_t count = section.Count(kTopicCountKey, 1, kMaxSections);
        Unique topics(L"topic");
        for (std::int16_t topic = 1; topic <= count; ++topic) {
            const std::wstring title = section.Required(modAcademics::TopicKey(topic));
            section.TellTwice(topics, title);
            const std::wstring fileName = section.Required(lesson_file::TaskKey(kFileKey, topic));
            if (!title.empty() && !fileName.empty()) CheckTopic(section, title, fileName);
        }
        section.TellUnknownKeys();
        topicsKnown_ = topicsKnown_ && section.CountsKnown();
    }

    void CheckTopic(SectionReader& section, const std::wstring& title, const std::wstring& fileName) {
        const std::wstring path = FilePath(folder_, fileName);
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
        const std::int16_t count = topic.Count(kQuizCountKey, 1, kMaxSections);
        topic.TellUnknownKeys();
        topicsKnown_ = topicsKnown_ && topic.CountsKnown();
        Unique quizzes(L"quiz");
        for (std::int16_t quiz = 1; quiz <= count; ++quiz)
            if (const std::wstring name = modAcademics::QuizSectionName(title, quiz); know(name)) {
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

/// Compares what the program lists with what the files hold, and tells where they part.
class ListCheck {
public:
    ListCheck(const IniFile& catalogue, std::span<const IniFile> quizFiles, std::wstring_view folder)
        : catalogue_(catalogue), quizFiles_(quizFiles), folder_(folder) {}

    Findings Check(std::span<const ListedSubject> listed) {
        Compare(catalogue_, kListSection, kSubjectCountKey, std::to_wstring(listed.size()));
        std::int16_t subject = 0;
        for (const ListedSubject& each : listed) CheckSubject(modAcademics::SectionKey(++subject), each);
        return std::move(findings_);
    }

private:
    void CheckSubject(const std::wstring& section, const ListedSubject& listed) {
        Compare(catalogue_, section, kNameKey, listed.name);
        Compare(catalogue_, section, kTopicCountKey, std::to_wstring(listed.topics.size()));
        std::int16_t topic = 0;
        for (const ListedTopic& each : listed.topics) {
            Compare(catalogue_, section, modAcademics::TopicKey(++topic), each.name);
            const std::wstring path =
                FilePath(folder_, ValueOf(catalogue_, section, lesson_file::TaskKey(kFileKey, topic)));
            const auto file = std::find_if(quizFiles_.begin(), quizFiles_.end(),
                                           [&](const IniFile& quizFile) { return SameName(quizFile.name, path); });
            if (file != quizFiles_.end()) CheckTopic(*file, each);
        }
    }

    void CheckTopic(const IniFile& file, const ListedTopic& listed) {
        Compare(file, listed.name, kQuizCountKey, std::to_wstring(listed.quizzes.size()));
        std::int16_t quiz = 0;
        for (const std::wstring& title : listed.quizzes)
            Compare(file, modAcademics::QuizSectionName(listed.name, ++quiz), lesson_file::kTitleKey, title);
    }

    static std::wstring ValueOf(const IniFile& file, std::wstring_view section, std::wstring_view key) {
        const IniSection* found = file.Find(section);
        return found == nullptr ? std::wstring() : found->Value(key).value_or(L"");
    }

    void Compare(const IniFile& file, std::wstring_view section, std::wstring_view key, const std::wstring& listed) {
        if (ValueOf(file, section, key) != listed)
            findings_.push_back({file.name, std::wstring(section),
                                 L"the program lists " + Quoted(listed) + L" for " + std::wstring(key)});
    }

    const IniFile& catalogue_;
    std::span<const IniFile> quizFiles_;
    std::wstring folder_;
    Findings findings_;
};

}  // namespace

Findings CheckListedQuizzes(const IniFile& catalogue, std::span<const IniFile> quizFiles, std::wstring_view folder,
                            std::span<const ListedSubject> listed) {
    return ListCheck(catalogue, quizFiles, folder).Check(listed);
}

Findings CheckQuizzes(const IniFile& catalogue, std::span<const IniFile> quizFiles, std::wstring_view folder) {
    return QuizCheck(catalogue, quizFiles, folder).Check();
}

}  // namespace data_files
