// bench_summary RESULTS [--cpu]
//
// Reads the runs that `run.sh` collected, checks that all contestants did the same work,
// and prints one table of ratios. Exit status 1 when a contestant's result is wrong;
// a missed goal is no error.
// With --cpu times are those of the processor, not of the clock on the wall.
//
// A line of RESULTS: workload, operation, contestant, round, milliseconds on the wall and
// of the processor, bytes of peak, file and result, checksums of document and file ("-" for none).

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <map>
#include <string>
#include <vector>

namespace {

struct Run {
    double milliseconds = 0;
    double peak = 0;
    double fileBytes = 0;
    double resultBytes = 0;
};
using Runs = std::vector<Run>;       // by round
std::map<std::string, Runs> s_Runs;  // by "workload operation contestant"
constexpr double kMiB = 1024.0 * 1024.0;

// What is compared, and which way round. Speed has to reach its goal, all others have to
// stay below it.
enum class Quantity {
    kTime,          // library over anchor
    kSpeed,         // anchor's time over the library's
    kPeakPerFile,   // peak memory over file size
    kPeakOnResult,  // peak memory beyond the document's arrays, MiB
    kPeak,          // peak memory, MiB
    kPeakPerNode,   // bytes
    kGrowth,        // exponent from the anchor's number of nodes to the library's
};

// The two bars of a row, 0 for none.
struct Goals {
    double stage;
    double final;
};

struct Row {
    std::string subject;
    std::string runs;
    std::string anchor;
    Quantity quantity;
    Goals goals;
    double nodes = 0;        // of `runs`, where it matters
    double anchorNodes = 0;  // of `anchor`
};

bool IsAnchored(Quantity quantity)
{
    return quantity == Quantity::kTime || quantity == Quantity::kSpeed || quantity == Quantity::kGrowth;
}

double Compare(const Row& row, const Run& run, const Run& anchor)
{
    switch (row.quantity) {
        case Quantity::kTime:
            return run.milliseconds / anchor.milliseconds;
        case Quantity::kSpeed:
            return anchor.milliseconds / run.milliseconds;
        case Quantity::kPeakPerFile:
            return run.peak / run.fileBytes;
        case Quantity::kPeakOnResult:
            return (run.peak - run.resultBytes) / kMiB;
        case Quantity::kPeak:
            return run.peak / kMiB;
        case Quantity::kPeakPerNode:
            return run.peak / row.nodes;
        case Quantity::kGrowth:
            return std::log(run.milliseconds / anchor.milliseconds) / std::log(row.nodes / row.anchorNodes);
    }
    return 0;
}

double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

Run MedianOf(const Runs& runs)
{
    const auto median = [&](double Run::*member) {
        std::vector<double> values;
        for (const Run& run : runs)
            values.push_back(run.*member);
        return Median(values);
    };
    return {median(&Run::milliseconds), median(&Run::peak), median(&Run::fileBytes),
            median(&Run::resultBytes)};
}

// Reads all runs. False when two contestants of one workload and form disagree about the
// document or the file.
bool ReadRuns(std::istream& in, bool usesCpuTime)
{
    std::map<std::string, std::string> checksums;
    bool agree = true;
    std::string workload, operation, contestant, document, file;
    std::size_t round = 0;
    double cpuMilliseconds = 0;
    Run run;
    while (in >> workload >> operation >> contestant >> round >> run.milliseconds >> cpuMilliseconds >>
           run.peak >> run.fileBytes >> run.resultBytes >> document >> file) {
        if (usesCpuTime)
            run.milliseconds = cpuMilliseconds;
        const std::string form = operation.substr(operation.find('-') + 1);
        for (const auto& [kind, sum] : {std::pair{"document", document}, std::pair{"file", file}}) {
            if (sum == "-")
                continue;
            const std::string subject = workload + ' ' + form + ' ' + kind;
            if (checksums.emplace(subject, sum).first->second == sum)
                continue;
            std::printf("WRONG RESULT: %s of %s %s differs\n", subject.c_str(), operation.c_str(),
                        contestant.c_str());
            agree = false;
        }
        Runs& runs = s_Runs[workload + ' ' + operation + ' ' + contestant];
        runs.resize(std::max(runs.size(), round + 1));
        runs[round] = run;
    }
    return agree && !s_Runs.empty();
}

std::vector<Row> ListRows()
{
    using enum Quantity;
    const std::string mesh = "mesh ", odd = "mesh-irregular ";
    std::vector<Row> rows = {
        {"M text load, time / from_chars reader",
         mesh + "load-text library",
         mesh + "load-text from_chars",
         kTime,
         {1.0, 0.70}},
        {"  irregular numbers", odd + "load-text library", odd + "load-text from_chars", kTime, {1.0, 0.80}},
        {"M text load, speed / stringstream reader",
         mesh + "load-text library",
         mesh + "load-text stringstream",
         kSpeed,
         {0, 9.5}},
        {"M text load, peak memory / file", mesh + "load-text library", "", kPeakPerFile, {0.70, 0.55}},
        {"M text load, peak beyond the result, MiB", mesh + "load-text library", "", kPeakOnResult, {0, 1}},
        {"M binary load, speed / read()",
         mesh + "load-binary library",
         mesh + "load-binary read",
         kSpeed,
         {0.70, 0.83}},
        {"M binary load, speed / read() + memcpy",
         mesh + "load-binary library",
         mesh + "load-binary read_memcpy",
         kSpeed,
         {0, 1.65}},
        {"M binary load, peak memory / file", mesh + "load-binary library", "", kPeakPerFile, {0, 1.07}},
        {"M text save, speed / to_chars writer",
         mesh + "save-text library",
         mesh + "save-text to_chars",
         kSpeed,
         {1.5, 2.8}},
        {"  irregular numbers", odd + "save-text library", odd + "save-text to_chars", kSpeed, {1.5, 2.8}},
        {"M text save, speed / ofstream",
         mesh + "save-text library",
         mesh + "save-text ofstream",
         kSpeed,
         {0, 14}},
        {"M text save, speed / write()",
         mesh + "save-text library",
         mesh + "save-text write",
         kSpeed,
         {0, 0.33}},
        {"  irregular numbers", odd + "save-text library", odd + "save-text write", kSpeed, {0, 0.24}},
        {"M text save, peak memory, MiB", mesh + "save-text library", "", kPeak, {0, 1}},
        {"M binary save, speed / write()",
         mesh + "save-binary library",
         mesh + "save-binary write",
         kSpeed,
         {0.70, 0.80}},
        {"M binary save, peak memory, MiB", mesh + "save-binary library", "", kPeak, {0, 1}},
        {"S text load, time / from_chars numbers",
         "skin load-text library",
         "skin load-text from_chars",
         kTime,
         {0, 0.75}},
        {"S binary load, time / read() + memcpy",
         "skin load-binary library",
         "skin load-binary read_memcpy",
         kTime,
         {0, 0.95}},
        {"S text save, speed / write()", "skin save-text library", "skin save-text write", kSpeed, {0, 0}},
        {"S binary save, speed / write()",
         "skin save-binary library",
         "skin save-binary write",
         kSpeed,
         {0, 0}},
        {"S pruned from 8 to 4, time / copy of the weights",
         "prune prune library",
         "prune prune copy",
         kTime,
         {15, 0}},
        {"A text load, time / from_chars numbers",
         "animation load-text library",
         "animation load-text from_chars",
         kTime,
         {1, 0.68}},
        {"A binary load, speed / read()",
         "animation load-binary library",
         "animation load-binary read",
         kSpeed,
         {0.70, 0.85}},
        {"A text save, speed / write()",
         "animation save-text library",
         "animation save-text write",
         kSpeed,
         {0, 0}},
        {"A binary save, speed / write()",
         "animation save-binary library",
         "animation save-binary write",
         kSpeed,
         {0, 0}},
        {"N 100k text load, time / from_chars numbers",
         "nodes-mixed-100000 load-text library",
         "nodes-mixed-100000 load-text from_chars",
         kTime,
         {0, 0.88}},
        {"N 1M binary load, time / first touch of its peak",
         "nodes-mixed-1000000 load-binary library",
         "nodes-mixed-1000000 load-binary first_touch",
         kTime,
         {0, 2.2}},
        {"N 1M binary load, peak bytes per node",
         "nodes-mixed-1000000 load-binary library",
         "",
         kPeakPerNode,
         {0, 1200},
         1e6},
    };
    struct Step {
        double from, to;
        const char* text;
        Goals goals;
    };
    static constexpr std::array<Step, 3> kSteps = {{
        {10000, 1000000, "10k to 1M", {1.2, 0}},
        {10000, 100000, "10k to 100k", {0, 1.20}},
        {100000, 1000000, "100k to 1M", {0, 1.06}},
    }};
    for (const std::string shape : {"deep", "wide", "mixed"})
        for (const std::string operation : {"load-text", "load-binary", "save-text", "save-binary"})
            for (const Step& step : kSteps) {
                const auto runs = [&](double nodes) {
                    return "nodes-" + shape + '-' + std::to_string(static_cast<long>(nodes)) + ' ' +
                           operation + " library";
                };
                rows.push_back({"N growth " + shape + ' ' + operation + ' ' + step.text, runs(step.to),
                                runs(step.from), kGrowth, step.goals, step.to, step.from});
            }
    return rows;
}

std::string Verdict(const Row& row, double value, double goal)
{
    if (goal == 0)
        return "";
    const bool atLeast = row.quantity == Quantity::kSpeed;
    char text[48];
    std::snprintf(text, sizeof text, "%s %.4g %s", atLeast ? ">=" : "<=", goal,
                  (atLeast ? value >= goal : value <= goal) ? "pass" : "MISS");
    return text;
}

void PrintRow(const Row& row)
{
    const auto found = s_Runs.find(row.runs);
    const auto anchored = s_Runs.find(row.anchor);
    const bool isAnchored = IsAnchored(row.quantity);
    if (found == s_Runs.end() || (isAnchored && anchored == s_Runs.end()))
        return;
    const Runs& runs = found->second;
    const Runs& anchors = isAnchored ? anchored->second : runs;
    const Run median = MedianOf(runs);
    const Run anchor = MedianOf(anchors);
    const double value = Compare(row, median, anchor);
    std::vector<double> byRound;
    for (std::size_t i = 0; i < std::min(runs.size(), anchors.size()); ++i)
        byRound.push_back(Compare(row, runs[i], anchors[i]));
    const auto [least, most] = std::minmax_element(byRound.begin(), byRound.end());
    char anchorTime[16] = "";
    if (isAnchored)
        std::snprintf(anchorTime, sizeof anchorTime, "%.1f", anchor.milliseconds);
    char range[48];
    std::snprintf(range, sizeof range, "[%.4g, %.4g]", *least, *most);
    std::printf("| %-48s | %8.1f | %8s | %7.4g | %-16s | %-13s | %-13s |\n", row.subject.c_str(),
                median.milliseconds, anchorTime, value, range, Verdict(row, value, row.goals.stage).c_str(),
                Verdict(row, value, row.goals.final).c_str());
}

}  // namespace

int main(int argc, char** argv)
{
    std::ifstream in(argc > 1 ? argv[1] : "");
    const bool agree = ReadRuns(in, argc > 2 && argv[2] == std::string("--cpu"));
    if (const auto touch = s_Runs.find("machine first_touch machine"); touch != s_Runs.end()) {
        constexpr double kPages = 64 * kMiB / 4096;
        std::printf("first touch of memory: %.2f us per 4 KiB page; medians of %zu runs; built with %s\n\n",
                    MedianOf(touch->second).milliseconds * 1000 / kPages, touch->second.size(), __VERSION__);
    }
    std::printf("| %-48s | %8s | %8s | %7s | %-16s | %-13s | %-13s |\n", "subject", "ms", "anchor", "value",
                "[min, max]", "this stage", "final goal");
    std::printf("|%s|---------:|---------:|--------:|%s|%s|%s|\n", std::string(50, '-').c_str(),
                std::string(18, '-').c_str(), std::string(15, '-').c_str(), std::string(15, '-').c_str());
    for (const Row& row : ListRows())
        PrintRow(row);
    if (!agree)
        std::printf("\nthe results above do not count: a contestant's work was wrong or missing\n");
    return agree ? 0 : 1;
}
