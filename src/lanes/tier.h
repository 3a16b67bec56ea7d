// The tier that a kernel source is being compiled for. Every kernel source is compiled once per tier, and all
// that it defines lives in namespace zelk::ZELK_TIER, so that no two tiers share code under one linker name.
#pragma once

#if !defined(ZELK_TIER_LETTER)
#error "kernel sources are compiled per tier, with ZELK_TIER_LETTER set to A, J, L or N"
#endif

#define ZELK_PASTE_(a, b) a##b
#define ZELK_PASTE(a, b) ZELK_PASTE_(a, b)
#define ZELK_STRING_(a) #a
#define ZELK_STRING(a) ZELK_STRING_(a)

#define ZELK_TIER ZELK_PASTE(tier_, ZELK_TIER_LETTER)
#define ZELK_TIER_NAME ZELK_STRING(ZELK_TIER_LETTER)

namespace zelk::ZELK_TIER {

enum class Tier : char { A = 'A', J = 'J', L = 'L', N = 'N' };

// `if constexpr (tier == Tier::A)` is how a kernel says that its method differs there.
// J and N are tiers of 32-bit x86 and follow the method of L unless a kernel says otherwise.
inline constexpr Tier tier = static_cast<Tier>(ZELK_TIER_NAME[0]);

} // namespace zelk::ZELK_TIER
