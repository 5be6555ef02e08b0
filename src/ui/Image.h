#pragma once

#include "ui/ControlOf.h"

namespace kvx::ui {

/// A picture read from a file: what it shows is left to the window, its size is known here.
class Picture {
public:
    Picture() = default;
    /// Reads the header of a BMP, GIF, PNG or JPEG file.
    /// @throws basic::Error 53: no such file; 76: no such folder; 481: no picture that is known
    explicit Picture(std::string_view path);

    const std::string& Path() const { return path_; }  ///< empty = no picture
    std::int32_t PixelWidth() const { return pixelWidth_; }
    std::int32_t PixelHeight() const { return pixelHeight_; }
    std::int32_t Width() const;  ///< hundredths of a millimetre, at 96 pixels an inch
    std::int32_t Height() const;

private:
    std::string path_;
    std::int32_t pixelWidth_ = 0, pixelHeight_ = 0;
};

/// A picture on the form.
class Image final : public ControlOf<Image> {
public:
    Image(Form& form, std::string_view name);
    std::string_view TypeName() const override { return "Image"; }
    static const basic::MemberTable<Image>& Members();

    const ui::Picture& Picture() const { return picture_; }
    void SetPicture(const ui::Picture& picture);
    bool Stretch() const { return stretch_; }
    void SetStretch(bool stretch);  ///< the picture takes the control's size

    bool TakesFocus() const override { return false; }
    void Reset() override;

private:
    ui::Picture picture_;
    bool stretch_ = false;
};

/// A picture that may hold other controls.
class PictureBox final : public ControlOf<PictureBox> {
public:
    PictureBox(Form& form, std::string_view name);
    std::string_view TypeName() const override { return "PictureBox"; }
    static const basic::MemberTable<PictureBox>& Members();

    const ui::Picture& Picture() const { return picture_; }
    void SetPicture(const ui::Picture& picture);

    void Reset() override;

private:
    ui::Picture picture_;
};

}  // namespace kvx::ui
