#include "command.h"

#include "values.h"

namespace zelk::eval {

const char help[] =
    R"(usage: zelk-eval [--tier T] [--rounding MODE] NAME VALUE... [, VALUE...]...
       zelk-eval --list | --help

Calls one function of libzelk and shows arguments and results lane by lane, in decimal and as bits, the tier
that ran, and the floating-point flags that the call raised.

NAME      an exported name (__zelk_sinf4, __zelk_sinf4.L, __zelk_sinf4_mask, ropsSin4, acos_scalar), or one
          without its __zelk_ (sinf4, sinf4.L, sinf4_mask)
VALUE     one lane: a decimal number, a hexadecimal one (0x1.8p3), inf, nan, snan, or a bit pattern (0x and
          all 8 or 16 digits); integers also in hexadecimal. Complex lanes are pairs: real, imaginary. The last
          value given serves the remaining lanes.
,         separates the arguments of two-argument functions. Without a comma, one value for each argument.
          The mask of a masked function is its last argument: 1 active, 0 inactive.

--tier T         call the kernel of tier T, whatever the dispatcher would choose
--rounding MODE  nearest (default), down, up or zero, for the call
--list           all functions with lanes, tiers, alias and masked form
)";

const char* rounding_name(Rounding rounding)
{
    static constexpr const char* names[] = {"nearest", "down", "up", "zero"};
    return names[static_cast<unsigned>(rounding)];
}

namespace {

Rounding rounding_named(const std::string& name)
{
    for (const Rounding rounding : all_roundings)
        if (name == rounding_name(rounding)) return rounding;
    throw Error("no rounding mode '" + name + "': nearest, down, up or zero");
}

} // namespace

Command read_command(int argc, char** argv)
{
    Command command;
    for (int i = 1; i < argc; ++i) {
        std::string word = argv[i];
        if (!word.starts_with("--") && word != "-h") {
            command.words.push_back(word);
            continue;
        }
        const std::size_t equals = word.find('=');
        const std::string option = word.substr(0, equals);
        const auto operand = [&]() -> std::string {
            if (equals != std::string::npos) return word.substr(equals + 1);
            if (++i == argc) throw Error(option + " needs a value");
            return argv[i];
        };
        if (option == "--list") {
            command.list = true;
        } else if (option == "--help" || option == "-h") {
            command.help = true;
        } else if (option == "--rounding") {
            command.rounding = rounding_named(operand());
        } else if (option == "--tier") {
            const std::string tier = operand();
            if (tier.size() != 1) throw Error("a tier is one letter, not '" + tier + "'");
            command.tier = tier[0];
        } else {
            throw Error("no option " + option + "; see zelk-eval --help");
        }
    }
    return command;
}

} // namespace zelk::eval
