#include "peers.h"

#include "peers/table.h"

#include <dlfcn.h>

namespace zelk::bench {

namespace {

struct Module {
    const char* name;
    const char* file;
};

// Those that could be built (bench/CMakeLists.txt); SLEEF's functions are found by name in its own library.
constexpr Module modules[] = {ZELK_PEER_MODULES};
constexpr const char* sleef_library = "libsleef.so.3";

void add_sleef(std::vector<Peer>& peers, std::string_view function, Lanes lanes)
{
    static void* const library = dlopen(sleef_library, RTLD_NOW | RTLD_LOCAL);
    if (!library) return;
    const std::string stem = "Sleef_" + std::string(function) + (lanes == Lanes::d2 ? "d2_" : "f4_");
    for (const char* accuracy : {"u05", "u10", "u15", "u35", ""})
        for (const char* instruction_set : {"sse2", "sse4"})
            if (const void* address = dlsym(library, (stem + accuracy + instruction_set).c_str()))
                peers.push_back({std::string("sleef ") + accuracy + (*accuracy ? " " : "") + instruction_set,
                                 address, function == "sincos" ? Convention::structure : Convention::one});
}

const void* in_table(const PeerFunction* table, std::string_view function, Lanes lanes)
{
    for (; table->name; ++table) {
        if (function != table->name) continue;
        const bool twin = lanes == Lanes::d2;
        const void* const unary =
            twin ? reinterpret_cast<void*>(table->d2) : reinterpret_cast<void*>(table->f4);
        const void* const binary =
            twin ? reinterpret_cast<void*>(table->d2_binary) : reinterpret_cast<void*>(table->f4_binary);
        return unary ? unary : binary;
    }
    return nullptr;
}

} // namespace

std::vector<Peer> find_peers(std::string_view function, Lanes lanes)
{
    std::vector<Peer> peers;
    if (lanes != Lanes::f4 && lanes != Lanes::d2) return peers;
    add_sleef(peers, function, lanes);
    for (const Module& module : modules) {
        if (!module.file) continue;
        void* const library = dlopen(module.file, RTLD_NOW | RTLD_LOCAL);
        if (!library) continue;
        const auto* table = static_cast<const PeerFunction*>(dlsym(library, "peer_functions"));
        if (const void* address = in_table(table, function, lanes))
            peers.push_back({module.name, address, Convention::one});
    }
    return peers;
}

} // namespace zelk::bench
