// The facts of docs/reference that do not stand in the headers: the list of functions for both targets, their
// pages, and measured errors.
#pragma once

#include "declarations.h"

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace zelk::reference {

struct Function {
    std::string name; // of the kernel: "sinf4"
    std::string symbol;
    std::string lanes; // "f4"; of a scalar routine "scalar", of a table "table"
    int args;
    std::string results;         // "1", "2", "P"
    std::string dispatch_x86_64; // tiers that the dispatcher tries; of a scalar routine possibly "plain"
    std::string dispatch_i386;   //
    std::string mask;            // "Z"; empty: no masked entry
    std::string substitutes[2];  // of inactive lanes
    std::string alias;           // empty: none
    std::string masked() const;  // name of the masked entry
};

const std::vector<Function>& functions();
// What a passage of a header declares.
std::vector<const Function*> declared_in(const Passage& passage);
// All tiers in which a function exists on a target: "AL".
std::string tiers(const Function& function, const std::string& target);
// Those of them that may give a lane other bits beside other lanes, as docs/data/neighbours_<target>.txt has
// them.
std::string influenced_tiers(const std::filesystem::path& source, const Function& function,
                             const std::string& target);
// Page of docs/functions that describes a function: "sin_cosf4"; empty: none.
std::string page_of(const std::filesystem::path& source, const std::string& name);

// A row of docs/accuracy/errors_<target>.csv, by the column's name.
using Measurement = std::map<std::string, std::string>;
// The rows of one function, in the order of the file; none if nothing was published for the target.
std::vector<Measurement> measurements(const std::filesystem::path& source, const std::string& target,
                                      const Function& function);

} // namespace zelk::reference
