// The academics catalogue and its quiz files: subjects, topics, quizzes, and what the pickers leave for each other.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "win32/controls.h"

namespace modAcademics {

/// All sections and topics of a catalogue together; more of them are error 9. A tree with more seems to be empty.
inline constexpr std::size_t kMaxListed = 65535;

/// Topic t of section s stands at [s - 1][t - 1].
using TopicTable = std::vector<std::vector<std::wstring>>;

// The catalogue as it was read last; section s stands at s - 1, quiz q at q - 1.
inline std::vector<std::wstring> AcademicSections;
inline std::vector<std::int16_t> AcademicTopicCounts;
inline TopicTable AcademicTopics;
inline std::vector<std::wstring> QuizTitles;

// What was chosen last: keys of the catalogue.
inline std::wstring AcademicSection;
inline std::wstring AcademicTopic;
inline std::wstring AcademicFileKey;

/// The result of the picker that was shown last: 1 = OK, 2 = cancelled.
inline std::int16_t AcademicsResult = 0;

/// The name of the requests of the product's own academics, or of a teacher's.
[[nodiscard]] inline const wchar_t* KindCode(bool isProduct) { return isProduct ? L"ACAP" : L"ACAT"; }

std::wstring SectionKey(std::int16_t section);
std::wstring TopicKey(std::int16_t topic);
std::wstring QuizSectionName(std::wstring_view topicName, std::int16_t quiz);

// Every reader raises file-not-found as "LoadAcademics", whatever its own name. A count below 0 is 0. One of 32767 or
// more is error 6: the 16-bit numbers end before a loop over it does.

/// Reads the whole catalogue and returns the number of sections. A section without a topic count has as many topics as
/// the section before it. Raises error 9 for more than kMaxListed sections and topics.
std::int16_t LoadAcademics(const std::wstring& catalogue, std::vector<std::wstring>& sections,
                           std::vector<std::int16_t>& topicCounts, TopicTable& topics);
/// Reads the topics of one section into its row and returns their number: `defaultCount` where the file states none.
std::int16_t LoadAcademicTopics(const std::wstring& catalogue, std::int16_t section, TopicTable& topics,
                                std::int16_t defaultCount = 0);
/// Reads the titles of a topic's quizzes and returns their number.
std::int16_t LoadQuizTitles(const std::wstring& quizFile, std::wstring_view topicName,
                            std::vector<std::wstring>& titles);
/// The path of a topic's quiz file. One that leads out of the quiz folder is reported like a missing file.
std::wstring GetQuizFileName(const std::wstring& catalogue, std::wstring_view sectionKey, std::wstring_view fileKey);
std::wstring GetTopicName(const std::wstring& catalogue, std::wstring_view sectionKey, std::wstring_view topicKey);

/// Adds sections with their topics to the tree, in the catalogue's order.
void AddAcademicsToTree(std::int16_t sectionCount, const std::vector<std::wstring>& sections,
                        const std::vector<std::int16_t>& topicCounts, const TopicTable& topics, win32::TreeView& tree);

/// Reads a node key into AcademicSection, AcademicTopic and AcademicFileKey; a section stands for its first topic.
void ParseAcademicSelection(std::wstring_view nodeKey);

}  // namespace modAcademics
