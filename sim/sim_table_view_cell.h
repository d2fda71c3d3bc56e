#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "host/table_view.h"
#include "sim/sim_label.h"
#include "sim/sim_view.h"

namespace tessel::sim {

// `UITableViewCell`: a content view with a title label and, for the value
// and subtitle styles, a detail label. A fresh cell is as wide as the screen
// and 44 points high, the toolkit's default.
class SimTableViewCell : public SimView, public virtual host::TableViewCell {
 public:
  static constexpr double kDefaultHeight = 44;
  static constexpr std::int64_t kStyleSubtitle = 3;

  SimTableViewCell(SimHost& host, std::shared_ptr<SimClass> cls, std::int64_t style, host::String reuseIdentifier);
  void awake() override;

  // |host::TableViewCell|
  host::Ref<host::Label> textLabel() const override { return host::Ref<host::Label>(textLabel_); }
  host::Ref<host::Label> detailTextLabel() const override { return host::Ref<host::Label>(detailTextLabel_); }
  host::Ref<host::View> contentView() const override { return host::Ref<host::View>(contentView_); }
  void setBackgroundView(const host::Ref<host::View>& view) override;

  std::int64_t style() const { return style_; }
  const host::String& reuseIdentifier() const { return reuseIdentifier_; }
  const std::shared_ptr<SimLabel>& titleLabel() const { return textLabel_; }
  const std::shared_ptr<SimLabel>& subtitleLabel() const { return detailTextLabel_; }
  // Lays the content view and labels out over the cell's bounds.
  void layoutSubviewsNow() override;

 private:
  std::int64_t style_;
  host::String reuseIdentifier_;
  std::shared_ptr<SimView> contentView_;
  std::shared_ptr<SimLabel> textLabel_;
  std::shared_ptr<SimLabel> detailTextLabel_;
  std::weak_ptr<SimView> backgroundView_;
};

}  // namespace tessel::sim
