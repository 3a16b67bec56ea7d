#include "facts.h"

#include <fstream>
#include <sstream>
#include <stdexcept>

namespace zelk::reference {

namespace {

// The pages of docs/functions and the functions that they describe.
struct Page {
    const char* stem;
    const char* functions;
};
constexpr Page pages[] = {
    {"sin_cosf4", "sinf4 cosf4"},
    {"sin_cos2", "sin2 cos2"},
    {"tan", "tanf4 tan2"},
    {"sincos", "sincosf4 sincos2 ropsSinCos4 ropdSinCos2"},
    {"expf4", "expf4"},
    {"exp2f4", "exp2f4"},
    {"exp2", "exp2"},
    {"exp22", "exp22"},
    {"logf4", "logf4 log2f4 log10f4"},
    {"log2", "log2 log22 log102"},
    {"powf4", "powf4"},
    {"pow2", "pow2"},
    {"asin", "asinf4 asin2 acosf4 acos2"},
    {"acos_scalar", "acos_scalar"},
    {"atan", "atanf4 atan2"},
    {"atan22", "atan2f4 atan22"},
    {"atan2_scalar", "atan2_scalar"},
    {"sinh_coshf4", "sinhf4 coshf4"},
    {"tanhf4", "tanhf4"},
    {"hyperbolic2", "sinh2 cosh2 tanh2"},
    {"inverse_hyperbolicf4", "asinhf4 acoshf4 atanhf4"},
    {"inverse_hyperbolic2", "asinh2 acosh2 atanh2"},
    {"sqrt", "sqrtf4 sqrt2 invsqrtf4 invsqrt2 sqrt_scalar sqrtf_scalar sqrtl_scalar"},
    {"cbrt", "cbrtf4 cbrt2 invcbrtf4 invcbrt2"},
    {"erf", "erff4 erf2 erfcf4 erfc2 erfinvf4 erfinv2 hypotf4 hypot2"},
    {"rounding",
     "ceilf4 ceil2 floorf4 floor2 truncf4 trunc2 roundf4 round2 rintf4 rint2 nearbyintf4 nearbyint2"},
    {"intdiv", "idiv4 irem4 idivrem4 ropiDivRem4 udiv4 urem4 udivrem4 ropuDivRem4"},
    {"cexp", "cexpf2 cexpf_scalar cexp_scalar internal_cexp"},
    {"clog", "clogf2 clogf_scalar clog_scalar"},
    {"cacos", "cacosf2 cacosf_scalar cacos_scalar"},
    {"complex",
     "cacoshf2 casinf2 casinhf2 catanf2 catanhf2 ccosf2 ccoshf2 clog10f2 clog2f2 cpowf2 csinf2 csinhf2 "
     "ctanf2 ctanhf2 "
     "cacosh_scalar casin_scalar casinh_scalar catan_scalar catanh_scalar ccos_scalar ccosh_scalar "
     "clog10_scalar "
     "clog2_scalar cpow_scalar csin_scalar csinh_scalar ctan_scalar ctanh_scalar cacoshf_scalar "
     "casinf_scalar "
     "casinhf_scalar catanf_scalar catanhf_scalar ccosf_scalar ccoshf_scalar clog10f_scalar clog2f_scalar "
     "cpowf_scalar csinf_scalar csinhf_scalar ctanf_scalar ctanhf_scalar fabs_scalar copysign_scalar "
     "copysignf_scalar"},
    {"csqrt", "csqrtf2 csqrtf_scalar csqrt_scalar"},
    {"extended",
     "fabsl_scalar expl_scalar logl_scalar log1pl_scalar log_scalar log1p_scalar sinhl_scalar coshl_scalar "
     "tanhl_scalar sinhcoshl_scalar asinhl_scalar acoshl_scalar atanhl_scalar powl_scalar"},
    {"extended_trig",
     "sinl_scalar cosl_scalar tanl_scalar sincosl_scalar reduce_pi04l sindl_scalar cosdl_scalar "
     "atanl_scalar atan2l_scalar atan2dl_scalar asinl_scalar acosl_scalar"},
};

// The fields of a line of comma-separated values; a field in quotation marks may hold commas.
std::vector<std::string> fields_of(const std::string& line)
{
    std::vector<std::string> fields(1);
    bool quoted = false;
    for (const char c : line) {
        if (c == '"')
            quoted = !quoted;
        else if (c == ',' && !quoted)
            fields.emplace_back();
        else if (c != '\r')
            fields.back() += c;
    }
    return fields;
}

// Whether the text declares a function or an array of this name.
bool declares(const std::string& text, const std::string& name)
{
    for (std::size_t at = text.find(name); at != std::string::npos; at = text.find(name, at + 1)) {
        const char before = at == 0 ? ' ' : text[at - 1];
        const char after = at + name.size() < text.size() ? text[at + name.size()] : ' ';
        if ((before == ' ' || before == '*') && (after == '(' || after == '[')) return true;
    }
    return false;
}

} // namespace

std::string Function::masked() const
{
    return mask.empty() ? "" : symbol + (results == "P" ? "Mask" : "_mask");
}

const std::vector<Function>& functions()
{
    static const std::vector<Function> list = {
#define ZELK_ENTRY(kernel, symbol, lanes, args, results, x86_64, i386, mask, a, b, alias)                    \
    {#kernel, #symbol, #lanes, args, #results, #x86_64, #i386, #mask, {#a, #b}, #alias},
#define ZELK_SCALAR(kernel, signature, x86_64, i386)                                                         \
    {#kernel, #kernel, "scalar", 0, "", #x86_64, #i386, "", {}, "none"},
#define ZELK_DATA(name, type, entries, values)                                                               \
    {#name, #name, "table", 0, "", "plain", "plain", "", {}, "none"},
#include "dispatch/entries.def"
#undef ZELK_ENTRY
#undef ZELK_SCALAR
    };
    static const std::vector<Function> named = [] {
        std::vector<Function> result = list;
        for (Function& function : result)
            if (function.alias == "none") function.alias.clear();
        return result;
    }();
    return named;
}

std::vector<const Function*> declared_in(const Passage& passage)
{
    std::vector<const Function*> found;
    for (const Function& function : functions())
        if (declares(passage.declarations, function.symbol)) found.push_back(&function);
    return found;
}

std::string tiers(const Function& function, const std::string& target)
{
    const bool x86_64 = target == "x86_64";
    const std::string& dispatch = x86_64 ? function.dispatch_x86_64 : function.dispatch_i386;
    if (dispatch == "plain" || dispatch.ends_with("_hidden")) return "";
    if (function.lanes == "scalar") return x86_64 ? "AL" : "AJ";
    if (x86_64) return "AL";
    return function.lanes == "d2" ? "ALN" : "AJLN";
}

std::string influenced_tiers(const std::filesystem::path& source, const Function& function,
                             const std::string& target)
{
    const std::filesystem::path path = source / "docs/data" / ("neighbours_" + target + ".txt");
    std::ifstream file(path);
    if (!file) throw std::runtime_error(path.string() + " cannot be read");
    std::string letters;
    for (std::string line; std::getline(file, line);)
        if (line.starts_with(function.symbol + '.')) letters += line[function.symbol.size() + 1];
    return letters;
}

std::string page_of(const std::filesystem::path& source, const std::string& name)
{
    for (const Page& page : pages) {
        std::istringstream words(page.functions);
        for (std::string word; words >> word;)
            if (word == name && exists(source / "docs/functions" / (std::string(page.stem) + ".md")))
                return page.stem;
    }
    return "";
}

std::vector<Measurement> measurements(const std::filesystem::path& source, const std::string& target,
                                      const Function& function)
{
    std::ifstream file(source / "docs/accuracy" / ("errors_" + target + ".csv"));
    std::vector<Measurement> rows;
    std::vector<std::string> columns;
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line[0] == '#') continue;
        const std::vector<std::string> fields = fields_of(line);
        if (columns.empty()) {
            columns = fields;
            continue;
        }
        Measurement row;
        for (std::size_t i = 0; i < columns.size() && i < fields.size(); ++i)
            row[columns[i]] = fields[i];
        if (row["entry"] == function.name || row["entry"] == function.symbol) rows.push_back(row);
    }
    return rows;
}

} // namespace zelk::reference
