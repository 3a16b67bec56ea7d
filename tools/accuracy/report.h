// What a survey found, kept in files and shown as tables.
#pragma once

#include <filesystem>
#include <iosfwd>
#include <string>
#include <vector>

#include "survey.h"

namespace zelk::accuracy {

// The rows of one kernel in the published table; the first is the one of all paths together.
using Rows = std::vector<std::vector<std::string>>;
const std::vector<std::string>& headings();
enum Column : std::size_t {
    column_entry,
    column_tier,
    column_arguments,
    column_max_ulp,
    column_worst,
    column_share,
    column_path,
    column_down,
    column_up,
    column_zero,
    column_wrong,
    column_wrong_argument,
    column_directed_wrong,
    column_changed,
    column_max_beside,
    column_sampling,
};
Rows rows_of(const Entry& entry, const Kernel& kernel, const Survey& survey);

// Kept per kernel together with the question, which is what was asked for and what tells one kernel from
// another, so that a survey that was interrupted goes on where it stopped. Reading gives nothing unless the
// file is complete and answers the same question.
class Store {
public:
    explicit Store(std::filesystem::path directory) : directory_(std::move(directory)) {}
    Rows read(const Entry& entry, const Kernel& kernel, const std::string& question) const;
    void write(const Entry& entry, const Kernel& kernel, const std::string& question,
               const Survey& survey) const;

private:
    std::filesystem::path file(const Entry& entry, const Kernel& kernel, const char* extension) const;
    std::filesystem::path directory_;
};

void write_csv(std::ostream& out, const Rows& rows);
Rows read_csv(std::istream& in);
// One table of the families' entries, and one of their paths.
void write_markdown(std::ostream& out, const Rows& rows);

} // namespace zelk::accuracy
