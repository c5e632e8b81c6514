// The academics catalogue and its quiz files.
#include "academics/modAcademics.h"

#include <algorithm>
#include <limits>

#include "shell/modGlobals.h"
#include "shell/modUtils.h"
#include "win32/error.h"
#include "win32/profile.h"
#include "win32/text.h"

namespace modAcademics {

using namespace modGlobals;
namespace profile = win32::profile;

namespace {

constexpr wchar_t kSource[] = L"LoadAcademics";
constexpr wchar_t kNotFound[] = L"not found";
constexpr wchar_t kTopicCountKey[] = L"NbrOfTopics";
constexpr std::wstring_view kTopicKey = L"TOPIC_NAME_";
constexpr std::wstring_view kFileKey = L"FILE_NAME_";
constexpr std::size_t kDigits = 2;

/// A stored count as the end of a loop.
std::int16_t LoopEnd(std::int16_t count) {
    if (count == std::numeric_limits<std::int16_t>::max()) throw win32::OverflowError(kSource);
    return std::max<std::int16_t>(count, 0);
}

/// Reads a section's topics into its row and returns their number: `defaultCount` where the section states none.
std::int16_t ReadTopics(const profile::Section& section, std::int16_t defaultCount, std::vector<std::wstring>& row) {
    const std::int16_t count = LoopEnd(section.ReadInt16(kTopicCountKey, defaultCount));
    row.clear();
    row.reserve(static_cast<std::size_t>(count));
    for (std::int16_t topic = 1; topic <= count; ++topic)
        row.push_back(win32::TrimBlanks(section.ReadString(TopicKey(topic), kNotFound)));
    return count;
}

}  // namespace

std::wstring SectionKey(std::int16_t section) { return L"SECTION_" + modUtils::ZeroPad(section, kDigits); }

std::wstring TopicKey(std::int16_t topic) { return std::wstring(kTopicKey) + modUtils::ZeroPad(topic, kDigits); }

std::wstring QuizSectionName(std::wstring_view topicName, std::int16_t quiz) {
    return std::wstring(topicName) + modUtils::ZeroPad(quiz, kDigits);
}

std::int16_t LoadAcademics(const std::wstring& catalogue, std::vector<std::wstring>& sections,
                           std::vector<std::int16_t>& topicCounts, TopicTable& topics) {
    modUtils::RequireFile(catalogue, kSource);
    const std::int16_t count = LoopEnd(profile::ReadInt16(catalogue, L"Academics", L"NbrOfSections"));
    sections.clear();
    topicCounts.clear();
    topics.clear();
    std::int16_t topicCount = 0;
    auto nodes = static_cast<std::size_t>(count);
    for (std::int16_t number = 1; number <= count; ++number) {
        const profile::Section section(catalogue, SectionKey(number));
        sections.push_back(win32::TrimBlanks(section.ReadString(L"SECTION_NAME", kNotFound)));
        // A section that states no count has its predecessor's.
        topicCount = ReadTopics(section, topicCount, topics.emplace_back());
        nodes += static_cast<std::size_t>(topicCount);
        if (nodes > kMaxListed) throw win32::SubscriptError(kSource);
        topicCounts.push_back(topicCount);
    }
    return count;
}

std::int16_t LoadAcademicTopics(const std::wstring& catalogue, std::int16_t section, TopicTable& topics,
                                std::int16_t defaultCount) {
    modUtils::RequireFile(catalogue, kSource);
    const auto row = static_cast<std::size_t>(section) - 1;
    if (topics.size() <= row) topics.resize(row + 1);
    return ReadTopics(profile::Section(catalogue, SectionKey(section)), defaultCount, topics[row]);
}

std::int16_t LoadQuizTitles(const std::wstring& quizFile, std::wstring_view topicName,
                            std::vector<std::wstring>& titles) {
    modUtils::RequireFile(quizFile, kSource);
    const std::int16_t count = LoopEnd(profile::ReadInt16(quizFile, topicName, L"NbrOfQuizzes"));
    titles.clear();
    for (std::int16_t quiz = 1; quiz <= count; ++quiz)
        titles.push_back(modUtils::ReadTrimmed(quizFile, QuizSectionName(topicName, quiz), L"DefTitle", kNotFound));
    return count;
}

std::wstring GetQuizFileName(const std::wstring& catalogue, std::wstring_view sectionKey, std::wstring_view fileKey) {
    modUtils::RequireFile(catalogue, kSource);
    const std::wstring name = modUtils::ReadTrimmed(catalogue, sectionKey, fileKey, kNotFound);
    std::wstring path = gQuizzesPath + L"\\" + name;
    if (!modUtils::StaysInside(name)) throw modUtils::FileNotFound(path, kSource);
    return path;
}

std::wstring GetTopicName(const std::wstring& catalogue, std::wstring_view sectionKey, std::wstring_view topicKey) {
    modUtils::RequireFile(catalogue, kSource);
    return modUtils::ReadTrimmed(catalogue, sectionKey, topicKey, kNotFound);
}

void AddAcademicsToTree(std::int16_t sectionCount, const std::vector<std::wstring>& sections,
                        const std::vector<std::int16_t>& topicCounts, const TopicTable& topics, win32::TreeView& tree) {
    const win32::HiddenTree hidden(tree);
    for (std::int16_t section = 1; section <= sectionCount; ++section) {
        const auto row = static_cast<std::size_t>(section) - 1;
        // Keys are made of numbers: names may repeat and hold any character.
        const std::wstring key = SectionKey(section);
        const auto root = tree.Add(nullptr, key, sections.at(row));
        for (std::int16_t topic = 1; topic <= topicCounts.at(row); ++topic)
            tree.Add(root, key + gSep + TopicKey(topic), topics.at(row).at(static_cast<std::size_t>(topic) - 1));
    }
}

void ParseAcademicSelection(std::wstring_view nodeKey) {
    const auto fields = win32::Split(nodeKey, gSep.front());
    AcademicSection = fields.front();
    AcademicTopic = fields.size() > 1 ? fields[1] : TopicKey(1);
    AcademicFileKey = std::wstring(kFileKey) + AcademicTopic.substr(std::min(kTopicKey.size(), AcademicTopic.size()));
}

}  // namespace modAcademics
