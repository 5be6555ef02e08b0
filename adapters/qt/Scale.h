#pragma once

#include <QRect>

#include <cstdint>

class QFont;

namespace kvx::adapters::qt {

/// From twips to pixels of the screen. Forms are drawn for a small font (average letter 6 pixels wide, line 13 pixels,
/// 15 twips a pixel); with the user's font everything grows in proportion, so that what fitted the design fits here.
/// Both directions grow apart: fonts of today are wider than the design's, and their boxes higher.
class Scale {
public:
    Scale() = default;
    explicit Scale(const QFont& font);

    int X(std::int32_t twips) const;
    int Y(std::int32_t twips) const;
    std::int32_t TwipsX(int pixels) const;
    std::int32_t TwipsY(int pixels) const;
    /// Edges are rounded, not sizes: boxes that touch in the design touch on the screen.
    QRect Rect(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height) const;

    double FactorX() const { return x_; }
    double FactorY() const { return y_; }

private:
    double x_ = 1, y_ = 1;
};

}  // namespace kvx::adapters::qt
