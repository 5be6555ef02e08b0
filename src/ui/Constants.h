#pragma once

#include <cstdint>

namespace kvx::ui {

/// A colour as the classic platform stores it: &H00BBGGRR, or &H800000nn for system colour nn.
using Color = std::uint32_t;

constexpr Color kColorMenu = 0x80000004;
constexpr Color kColorWindow = 0x80000005;
constexpr Color kColorWindowText = 0x80000008;
constexpr Color kColorHighlight = 0x8000000D;
constexpr Color kColorHighlightText = 0x8000000E;
constexpr Color kColorButtonFace = 0x8000000F;
constexpr Color kColorGrayText = 0x80000011;
constexpr Color kColorButtonText = 0x80000012;

// Message box: buttons, icons, default button (added together) ...
constexpr std::int32_t vbOKOnly = 0;
constexpr std::int32_t vbOKCancel = 1;
constexpr std::int32_t vbAbortRetryIgnore = 2;
constexpr std::int32_t vbYesNoCancel = 3;
constexpr std::int32_t vbYesNo = 4;
constexpr std::int32_t vbRetryCancel = 5;
constexpr std::int32_t vbCritical = 16;
constexpr std::int32_t vbQuestion = 32;
constexpr std::int32_t vbExclamation = 48;
constexpr std::int32_t vbInformation = 64;
constexpr std::int32_t vbDefaultButton2 = 256;
// ... and what it answers.
constexpr std::int32_t vbOK = 1;
constexpr std::int32_t vbCancel = 2;
constexpr std::int32_t vbAbort = 3;
constexpr std::int32_t vbRetry = 4;
constexpr std::int32_t vbIgnore = 5;
constexpr std::int32_t vbYes = 6;
constexpr std::int32_t vbNo = 7;

// Mouse pointers.
constexpr std::int16_t vbDefault = 0;
constexpr std::int16_t vbArrow = 1;
constexpr std::int16_t vbHourglass = 11;

// Key codes of KeyDown and KeyUp; letters and digits are their upper-case ASCII code.
constexpr std::int16_t vbKeyBack = 8;
constexpr std::int16_t vbKeyTab = 9;
constexpr std::int16_t vbKeyReturn = 13;
constexpr std::int16_t vbKeyShift = 16;
constexpr std::int16_t vbKeyControl = 17;
constexpr std::int16_t vbKeyMenu = 18;
constexpr std::int16_t vbKeyEscape = 27;
constexpr std::int16_t vbKeySpace = 32;
constexpr std::int16_t vbKeyPageUp = 33;
constexpr std::int16_t vbKeyPageDown = 34;
constexpr std::int16_t vbKeyEnd = 35;
constexpr std::int16_t vbKeyHome = 36;
constexpr std::int16_t vbKeyLeft = 37;
constexpr std::int16_t vbKeyUp = 38;
constexpr std::int16_t vbKeyRight = 39;
constexpr std::int16_t vbKeyDown = 40;
constexpr std::int16_t vbKeyInsert = 45;
constexpr std::int16_t vbKeyDelete = 46;
constexpr std::int16_t vbKeyF1 = 112;
constexpr std::int16_t vbKeyF2 = 113;

constexpr std::int16_t vbShiftMask = 1;
constexpr std::int16_t vbCtrlMask = 2;
constexpr std::int16_t vbAltMask = 4;

/// How an unload began.
constexpr std::int16_t vbFormControlMenu = 0;  // the close box
constexpr std::int16_t vbFormCode = 1;

/// Which edges of its container a control keeps its distance from when the container changes size.
enum Anchor : std::uint8_t {
    kAnchorLeft = 1,
    kAnchorTop = 2,
    kAnchorRight = 4,
    kAnchorBottom = 8,
    kAnchorTopLeft = kAnchorLeft | kAnchorTop,
    kAnchorAll = 15,
};

constexpr int kTwipsPerPixel = 15;  // at 96 dpi

}  // namespace kvx::ui
