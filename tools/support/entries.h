// The list of entries as data, with the addresses that the built library exports.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zelk {

// Vectors; and one number of the scalar routines, by the letter of their signatures: binary32, binary64, 80
// bits, complex of binary32 and of binary64.
enum class Lanes { f4, d2, c2, i4, u4, f, d, l, c, z };
enum class Results { one, two, pointer };
enum class MaskKind { Z, S, D, D2, T, P, I };

struct Kernel {
    std::string symbol; // "__zelk_sinf4.L"
    char tier;
    const void* address;
    bool lane_loop = false; // a loop over 80-bit routines: rounded once, not the method of the other tiers
};

struct Entry {
    std::string name;   // "sinf4"
    std::string symbol; // "__zelk_sinf4"
    Lanes lanes;
    int args;
    Results results;
    std::string tiers; // that the dispatcher tries on this target, in order
    MaskKind mask;
    double substitute[2];
    std::string alias; // empty: none
    const void* address;
    std::string masked;          // name of the masked entry
    std::vector<Kernel> kernels; // all of this target
    std::string signature = {};  // of a scalar routine
};

std::span<const Entry> entries();
// The kernels of a list that share one method.
std::vector<Kernel> without_lane_loops(std::span<const Kernel> kernels);
const Entry& entry(std::string_view name);
// Any exported symbol; null if there is none of that name.
const void* exported(const std::string& symbol);

unsigned lane_count(Lanes lanes);
// Bits of the feature word of which one says that the processor has the tier.
std::uint32_t tier_mask(char tier);
// The tier that a dispatcher with this list selects for a feature word.
char selected_tier(std::string_view tiers, std::uint32_t feature_word);

// The scalar routines of the list: name and the tiers of the dispatcher ("" for a single implementation).
struct ScalarEntry {
    std::string name;
    std::string signature;
    std::string tiers;
};
std::span<const ScalarEntry> scalar_entries();

// The exported tables of the list, with their sizes in bytes.
struct DataEntry {
    std::string name;
    std::size_t size;
};
std::span<const DataEntry> data_entries();

// Every name that the list says is exported on this target.
std::vector<std::string> listed_exports();

} // namespace zelk
