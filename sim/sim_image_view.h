#pragma once

#include "sim/sim_image.h"
#include "sim/sim_view.h"

namespace tessel::sim {

// `UIImageView`: shows an image over its whole frame; it takes no touches.
class SimImageView : public SimView, public virtual host::ImageView {
 public:
  SimImageView(SimHost& host, std::shared_ptr<SimClass> cls, host::Ref<host::Image> image)
      : SimView(host, std::move(cls), {0, 0, image->size().width, image->size().height}), image_(std::move(image)) {
    setUserInteractionEnabled(false);
    setOpaque(false);
  }

  // |host::ImageView|
  host::Ref<host::Image> image() const override { return image_; }

  void setImage(host::Ref<host::Image> image) { image_ = std::move(image); }
  // The image's pixels, when it is one of the host's images.
  const SimImage* simImage() const { return dynamic_cast<const SimImage*>(image_.get()); }

 private:
  host::Ref<host::Image> image_;
};

}  // namespace tessel::sim
