#include "output/chart.h"

#include "output/html_value.h"

#include <algorithm>
#include <cstdio>

namespace tool {
namespace {

// A drawing is stretched to whatever room it has; strokes keep their width (style sheet).
constexpr double Width = 300;
constexpr double Height = 60;
constexpr double Edge = 4;

std::string Coordinate(double value) {
    char text[400];
    std::snprintf(text, sizeof text, "%.1f", value);
    return text;
}

/// How far up its range a number lies, from 0 to 1.
double Share(double number, Range range) {
    const double span = range.high - range.low;
    return span > 0 ? std::clamp((number - range.low) / span, 0.0, 1.0) : 0.5;
}

std::string Start(std::string_view kind, double height, std::string_view title) {
    std::string text = "<svg class=\"";
    text.append(kind).append("\" viewBox=\"0 0 ").append(Coordinate(Width)).append(" ");
    text.append(Coordinate(height)).append("\" preserveAspectRatio=\"none\" role=\"img\"><title>");
    return text.append(Escaped(title)).append("</title>");
}

std::string Path(std::string_view kind, const std::string& commands) {
    return std::string("<path class=\"").append(kind).append("\" d=\"").append(commands).append("\"/>");
}

struct Place {
    double x;
    double y;
};

std::string Command(char letter, Place place) {
    return std::string(1, letter).append(Coordinate(place.x)).append(" ").append(Coordinate(place.y));
}

/// A stroke along a bar, between two shares of it.
std::string Stroke(double from, double to) {
    std::string commands = "M";
    commands.append(Coordinate(from * Width)).append(" 8H").append(Coordinate(to * Width + 0.01));
    return commands;
}

/// One stretch without a gap: the curve and the area below it.
std::string StretchOf(std::span<const Place> places) {
    std::string line;
    for (const Place& place : places) {
        line += Command(line.empty() ? 'M' : 'L', place);
    }
    if (places.size() == 1) {
        return Path("line", line + "h0.01"); // a dot
    }
    std::string area = Command('M', {places.front().x, Height});
    area.append("L").append(line, 1).append(Command('L', {places.back().x, Height})).append("Z");
    return Path("area", area) + Path("line", line);
}

} // namespace

std::string CurveSvg(std::span<const std::optional<double>> numbers, Range range, std::string_view title) {
    std::string text = Start("curve", Height, title);
    const double step = numbers.size() > 1 ? (Width - 2 * Edge) / static_cast<double>(numbers.size() - 1) : 0;
    std::vector<Place> stretch;
    const auto end = [&] {
        text += stretch.empty() ? std::string() : StretchOf(stretch);
        stretch.clear();
    };
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        if (!numbers[i]) {
            end();
            continue;
        }
        stretch.push_back({Edge + step * static_cast<double>(i),
                           Height - Edge - Share(*numbers[i], range) * (Height - 2 * Edge)});
    }
    end();
    return text + "</svg>";
}

std::string BarSvg(std::span<const std::optional<double>> numbers, Range range, std::string_view title) {
    constexpr double BarHeight = 16;
    std::string text = Start("bar", BarHeight, title) + Path("track", "M0 8H300");
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
