#include "output/chart.h"

#include "output/html_value.h"

#include <algorithm>
#include <cstdio>

namespace tool {
namespace {

// A drawing is stretched to the available size; strokes keep their width (style sheet).
constexpr double Width = 300;
constexpr double Height = 60;
constexpr double Edge = 4;

std::string Coordinate(double value) {
    char text[400];
    std::snprintf(text, sizeof text, "%.1f", value);
    return text;
}

/// The position of a number within the range, from 0 to 1.
double Share(double number, Range range) {
    const double span = range.high - range.low;
    return span > 0 ? std::clamp((number - range.low) / span, 0.0, 1.0) : 0.5;
}

std::string StartSvg(std::string_view className, double height, std::string_view title) {
    std::string text = "<svg class=\"";
    text.append(className).append("\" viewBox=\"0 0 ").append(Coordinate(Width)).append(" ");
    text.append(Coordinate(height)).append("\" preserveAspectRatio=\"none\" role=\"img\"><title>");
    return text.append(Escaped(title)).append("</title>");
}

std::string Path(std::string_view className, const std::string& commands) {
    return std::string("<path class=\"").append(className).append("\" d=\"").append(commands).append("\"/>");
}

struct Position {
    double x;
    double y;
};

std::string Command(char letter, Position at) {
    return std::string(1, letter).append(Coordinate(at.x)).append(" ").append(Coordinate(at.y));
}

/// A stroke along a bar, from one share of its length to another.
std::string Stroke(double from, double to) {
    std::string commands = "M";
    commands.append(Coordinate(from * Width)).append(" 8H").append(Coordinate(to * Width + 0.01));
    return commands;
}

/// A part of the curve without a gap, and the area between it and the base.
std::string SegmentOf(std::span<const Position> positions, double base) {
    std::string line;
    for (const Position& position : positions) {
        line += Command(line.empty() ? 'M' : 'L', position);
    }
    if (positions.size() == 1) {
        return Path("line", line + "h0.01"); // a dot
    }
    std::string area = Command('M', {positions.front().x, base});
    area.append("L").append(line, 1).append(Command('L', {positions.back().x, base})).append("Z");
    return Path("area", area) + Path("line", line);
}

} // namespace

std::string CurveSvg(std::span<const std::optional<double>> numbers, Range range, std::string_view title) {
    std::string text = StartSvg("curve", Height, title);
    const double step = numbers.size() > 1 ? (Width - 2 * Edge) / static_cast<double>(numbers.size() - 1) : 0;
    const auto height = [&](double number) {
        return Height - Edge - Share(number, range) * (Height - 2 * Edge);
    };
    const double base = range.low < 0 ? height(0) : Height;
    std::vector<Position> segment;
    const auto endSegment = [&] {
        text += segment.empty() ? std::string() : SegmentOf(segment, base);
        segment.clear();
    };
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        if (!numbers[i]) {
            endSegment();
            continue;
        }
        segment.push_back({Edge + step * static_cast<double>(i), height(*numbers[i])});
    }
    endSegment();
    return text + "</svg>";
}

std::string BarSvg(std::span<const std::optional<double>> numbers, Range range, std::string_view title) {
    constexpr double BarHeight = 16;
    std::string text = StartSvg("bar", BarHeight, title) + Path("track", "M0 8H300");
    std::optional<double> newest;
    std::optional<Range> met;
    for (const std::optional<double>& number : numbers) {
        if (number) {
            newest = number;
            met = met ? Range{std::min(met->low, *number), std::max(met->high, *number)}
                      : Range{*number, *number};
        }
    }
    if (newest) {
        text += Path("fill", Stroke(0, Share(*newest, range)));
        text += Path("met", Stroke(Share(met->low, range), Share(met->high, range)));
    }
    return text + "</svg>";
}

} // namespace tool
