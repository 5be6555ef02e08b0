#include "adapters/qt/Scale.h"

#include "ui/Constants.h"

#include <QFont>
#include <QFontMetricsF>
#include <QString>

#include <algorithm>
#include <cmath>

namespace kvx::adapters::qt {
namespace {

// What the design font needs: the letters below are 300 pixels wide in it, a text box of one line 19 pixels high.
constexpr double kDesignLetters = 300;
constexpr double kDesignBox = 19;
// What a box adds to the line of text: frame and margins, as the styles of today draw them.
constexpr double kBoxMargins = 8;

}  // namespace

Scale::Scale(const QFont& font)
{
    const QFontMetricsF metrics(font);
    const double letters =
        metrics.horizontalAdvance(QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"));
    // Never below the drawing: a tiny font would make targets that the mouse cannot hit.
    x_ = std::max(0.9, letters / kDesignLetters);
    y_ = std::max(1.0, (metrics.height() + kBoxMargins) / kDesignBox);
}

int Scale::X(std::int32_t twips) const
{
    return static_cast<int>(std::lround(twips * x_ / ui::kTwipsPerPixel));
}

int Scale::Y(std::int32_t twips) const
{
    return static_cast<int>(std::lround(twips * y_ / ui::kTwipsPerPixel));
}

std::int32_t Scale::TwipsX(int pixels) const
{
    return static_cast<std::int32_t>(std::lround(pixels * ui::kTwipsPerPixel / x_));
}

std::int32_t Scale::TwipsY(int pixels) const
{
    return static_cast<std::int32_t>(std::lround(pixels * ui::kTwipsPerPixel / y_));
}

QRect Scale::Rect(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height) const
{
    const int x = X(left);
    const int y = Y(top);
    return QRect(x, y, X(left + width) - x, Y(top + height) - y);
}

}  // namespace kvx::adapters::qt
