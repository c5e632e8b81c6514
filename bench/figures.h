// What the benchmark measures and prints: alternating runs, their medians, and one table of all figures.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace bench {

/// Runs a piece of work and returns its milliseconds.
template <class Work>
double Milliseconds(Work&& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

double Median(std::vector<double> values);

/// One way of doing something: does it once and returns the milliseconds that count.
using Way = std::function<double()>;

/// Runs every way in turn, `rounds` times after one round that only warms up, and returns each way's median. They
/// alternate because a machine that is busy for a moment would otherwise slow down one way only.
std::vector<double> AlternatingMedians(std::size_t rounds, const std::vector<Way>& ways);

/// The rows of the printed table.
class Table {
public:
    static Table& Default();

    /// A time that must be at least `wanted` times shorter than its reference.
    void AddFaster(const std::string& what, double milliseconds, double reference, double wanted);
    /// A time that may take at most `wanted` times its reference.
    void AddAtMost(const std::string& what, double milliseconds, double reference, double wanted);
    /// A number that may be at most `limit`.
    void AddLimit(const std::string& what, double number, const std::string& unit, double limit);
    /// A number that is only shown, beside its reference where it has one.
    void AddShown(const std::string& what, double number, const std::string& unit);
    void AddShown(const std::string& what, double number, double reference, const std::string& unit);

    void Print() const;

private:
    struct Row {
        std::string what;
        std::string figure;
        std::string reference;
        std::string ratio;
        std::string wanted;
        std::string verdict;
    };

    std::vector<Row> rows_;
};

}  // namespace bench
