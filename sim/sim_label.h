#pragma once

#include "sim/sim_view.h"

namespace tessel::sim {

// `UILabel`: one or more lines of text; it takes no touches.
class SimLabel : public SimView, public virtual host::Label {
 public:
  SimLabel(SimHost& host, std::shared_ptr<SimClass> cls, const host::Rect& frame)
      : SimView(host, std::move(cls), frame) {
    setUserInteractionEnabled(false);
    setOpaque(false);
  }

  // |host::Label|
  void setText(const host::String& text) override { text_ = text; }
  host::String text() const override { return text_; }
  void setTextColor(const host::Color& color) override { textColor_ = color; }
  void setFont(const host::Font& font) override { font_ = font; }
  void setEnabled(bool enabled) override { enabled_ = enabled; }
  void setNumberOfLines(std::int64_t lines) override { numberOfLines_ = lines; }
  void setAdjustsFontSizeToFitWidth(bool adjusts) override { adjustsFontSizeToFitWidth_ = adjusts; }

  const host::Color& textColor() const { return textColor_; }
  const host::Font& font() const { return font_; }
  bool enabled() const { return enabled_; }
  std::int64_t numberOfLines() const { return numberOfLines_; }
  bool adjustsFontSizeToFitWidth() const { return adjustsFontSizeToFitWidth_; }

 private:
  host::String text_;
  host::Color textColor_ = host::Color::blackColor();
  host::Font font_ = host::Font::systemFontOfSize(17);
  bool enabled_ = true;
  std::int64_t numberOfLines_ = 1;
  bool adjustsFontSizeToFitWidth_ = false;
};

}  // namespace tessel::sim
