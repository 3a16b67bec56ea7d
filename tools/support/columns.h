// Text in aligned columns.
#pragma once

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace zelk {

struct Column {
    std::string heading;
    std::vector<std::string> cells;
};

inline void print(const std::vector<Column>& columns)
{
    const auto print_row = [&](auto&& cell) {
        std::string line;
        for (const Column& column : columns) {
            std::size_t width = column.heading.size();
            for (const std::string& text : column.cells)
                width = std::max(width, text.size());
            line += cell(column);
            line.append(width + 2 - cell(column).size(), ' ');
        }
        line.erase(line.find_last_not_of(' ') + 1);
        std::puts(line.c_str());
    };
    print_row([](const Column& column) { return column.heading; });
    for (std::size_t i = 0; i < columns.front().cells.size(); ++i)
        print_row([i](const Column& column) { return column.cells[i]; });
}

} // namespace zelk
