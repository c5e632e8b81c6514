// Medians and the table.
#include "figures.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace bench {

namespace {

constexpr char kMilliseconds[] = "ms";

std::string Decimal(double number, int places) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%.*f", places, number);
    return text.data();
}

std::string WithUnit(double number, const std::string& unit) {
    const bool whole = number == static_cast<double>(static_cast<long long>(number));
    return Decimal(number, whole ? 0 : 1) + (unit.empty() ? "" : " " + unit);
}

std::string Verdict(bool held) { return held ? "ok" : "MISSED"; }

std::string Ratio(double ratio) { return Decimal(ratio, 2); }

}  // namespace

double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

std::vector<double> AlternatingMedians(std::size_t rounds, const std::vector<Way>& ways) {
    for (const Way& way : ways) way();
    std::vector<std::vector<double>> times(ways.size());
    for (std::size_t round = 0; round < rounds; ++round)
        for (std::size_t i = 0; i < ways.size(); ++i) {
            // No way always follows the same other one.
            const std::size_t turn = round % 2 == 0 ? i : ways.size() - 1 - i;
            times[turn].push_back(ways[turn]());
        }
    std::vector<double> medians;
    std::transform(times.begin(), times.end(), std::back_inserter(medians), Median);
    return medians;
}

Table& Table::Default() {
    static Table table;
    return table;
}

void Table::AddFaster(const std::string& what, double milliseconds, double reference, double wanted) {
    const double ratio = reference / milliseconds;
    rows_.push_back({what, WithUnit(milliseconds, kMilliseconds), WithUnit(reference, kMilliseconds), Ratio(ratio),
                     ">= " + WithUnit(wanted, ""), Verdict(ratio >= wanted)});
}

void Table::AddAtMost(const std::string& what, double milliseconds, double reference, double wanted) {
    const double ratio = milliseconds / reference;
    rows_.push_back({what, WithUnit(milliseconds, kMilliseconds), WithUnit(reference, kMilliseconds), Ratio(ratio),
                     "<= " + WithUnit(wanted, ""), Verdict(ratio <= wanted)});
}

void Table::AddLimit(const std::string& what, double number, const std::string& unit, double limit) {
    rows_.push_back({what, WithUnit(number, unit), "", "", "<= " + WithUnit(limit, unit), Verdict(number <= limit)});
}

void Table::AddShown(const std::string& what, double number, const std::string& unit) {
    rows_.push_back({what, WithUnit(number, unit), "", "", "", ""});
}

void Table::AddShown(const std::string& what, double number, double reference, const std::string& unit) {
    rows_.push_back({what, WithUnit(number, unit), WithUnit(reference, unit), Ratio(number / reference), "", ""});
}

void Table::Print() const {
    const Row head{"what", "median", "reference", "ratio", "wanted", ""};
    std::size_t width = head.what.size();
    for (const Row& row : rows_) width = std::max(width, row.what.size());
    const auto print = [width](const Row& row) {
        std::printf("%-*s %12s %12s %8s %14s  %s\n", static_cast<int>(width), row.what.c_str(), row.figure.c_str(),
                    row.reference.c_str(), row.ratio.c_str(), row.wanted.c_str(), row.verdict.c_str());
    };
    std::printf("\n");
    print(head);
    std::printf("%s\n", std::string(width + 60, '-').c_str());
    for (const Row& row : rows_) print(row);
    std::printf("\n");
    std::fflush(stdout);
}

}  // namespace bench
