#include "scalar_call.h"

#include <gtest/gtest.h>

namespace zelk::test {

std::vector<ScalarKernel> tier_kernels(const std::string& name)
{
    auto kernels = scalar_kernels(name);
    kernels.erase(kernels.begin());
    return kernels;
}

ScalarKernel scalar_kernel(const std::string& name)
{
    return scalar_kernels(name).front();
}

Argument argument_of(const ScalarKernel& kernel, const Bits80& x, const Bits80& imaginary)
{
    Argument result(x);
    const char kind = kernel.signature[2];
    if (kind == 'd' || kind == 'z') {
        result.narrow = Argument(static_cast<double>(number(x))).narrow;
        result.imaginary = Argument(static_cast<double>(number(imaginary))).narrow;
    }
    if (kind == 'f' || kind == 'c') {
        result.narrow = Argument(static_cast<float>(number(x))).narrow;
        result.imaginary = Argument(static_cast<float>(number(imaginary))).narrow;
    }
    return result;
}

ScalarResult call_scalar(const ScalarKernel& kernel, const Argument& x, const Argument& y,
                         const Environment& environment)
{
    const ScalarResult result = call_routine(kernel.address, kernel.signature, x, y, environment);
    const auto text = [](const Argument& argument) {
        return hex(argument.extended) + " or " + hex(quads(argument.narrow, argument.imaginary));
    };
    if (!result.breaches.empty())
        ADD_FAILURE() << kernel.symbol << ' ' << text(x) << ' ' << text(y) << ": " << result.breaches;
    return result;
}

} // namespace zelk::test
