// The compact table: one line per entry or scalar routine and tier, the smallest time of all repetitions.
#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <map>
#include <string>

namespace zelk::bench {

class SummaryReporter : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

private:
    // Smallest nanoseconds per item of a benchmark; 0 if it did not run.
    double nanoseconds(const std::string& name) const;
    std::map<std::string, double> smallest_;
    int repetitions_ = 0;
};

} // namespace zelk::bench
