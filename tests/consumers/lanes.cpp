#include <zelk/zelk.hpp>

#include <vector>

int main()
{
    const std::vector<double> x{0, 1, 2, 3, 4};
    std::vector<double> y(x.size());
    zelk::apply(zelk::exp2, x, y);
    return y != std::vector<double>{1, 2, 4, 8, 16};
}
