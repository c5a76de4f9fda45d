#include "ui/contrast.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double offset = 0.05;
constexpr double middleLuminance = 0.18; // white and black stand out from it alike
constexpr int mostSteps = 200; // either way ends at black or white

double linear(double component)
{
    return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &color)
{
    return 0.2126 * linear(double(color.redF())) + 0.7152 * linear(double(color.greenF()))
        + 0.0722 * linear(double(color.blueF()));
}

QColor lighter(const QColor &color)
{
    return Contrast::over(QColor::fromRgbF(1, 1, 1, 0.04F), color);
}

QColor darker(const QColor &color)
{
    return color.darker(104);
}

} // namespace

double Contrast::ratio(const QColor &first, const QColor &second)
{
    const auto [less, more] = std::minmax({luminance(first), luminance(second)});
    return (more + offset) / (less + offset);
}

QColor Contrast::over(const QColor &front, const QColor &ground)
{
    const float share = front.alphaF();
    const auto mixed = [share](float above, float below) {
        return std::clamp(above * share + below * (1 - share), 0.0F, 1.0F);
    };
    return QColor::fromRgbF(mixed(front.redF(), ground.redF()),
                            mixed(front.greenF(), ground.greenF()),
                            mixed(front.blueF(), ground.blueF()));
}

QColor Contrast::readable(const QColor &color, const QColor &ground)
{
    const auto step = luminance(ground) > middleLuminance ? darker : lighter;
    QColor result = color;
    for (int steps = 0; steps < mostSteps && ratio(result, ground) < forText; ++steps)
        result = step(result);
    return result;
}
