#include "sim/view_description.h"

#include "sim/json_values.h"
#include "sim/sim_backdrop_view.h"
#include "sim/sim_button.h"
#include "sim/sim_gesture_recognizer.h"
#include "sim/sim_icon_view.h"
#include "sim/sim_image_view.h"
#include "sim/sim_label.h"
#include "sim/sim_table_view.h"

namespace tessel::sim {

using nlohmann::json;

namespace {

json idOrNull(const SimObject* object) { return object && !object->id().empty() ? json(object->id()) : json(nullptr); }

json text(const host::String& s) { return s ? json(*s) : json(nullptr); }

json describeMask(const SimShapeLayer& mask) {
  json points = json::array();
  for (const auto& element : mask.path().elements) {
    if (element.op != host::Path::Op::close) points.push_back(toJsonValue(element.point));
  }
  return {{"frame", toJsonValue(mask.frame())}, {"points", points}};
}

void addKindFields(const SimView& view, json& out) {
  if (const auto* label = dynamic_cast<const SimLabel*>(&view)) {
    out["text"] = text(label->text());
    out["textColor"] = toJsonValue(label->textColor());
    out["fontSize"] = label->font().pointSize;
    out["enabled"] = label->enabled();
    out["numberOfLines"] = label->numberOfLines();
    out["adjustsFontSizeToFitWidth"] = label->adjustsFontSizeToFitWidth();
  }
  if (const auto* imageView = dynamic_cast<const SimImageView*>(&view)) {
    json image = nullptr;
    if (const auto* pixels = imageView->simImage()) {
      auto uniform = pixels->uniformColor();
      image = {{"width", pixels->size().width},
               {"height", pixels->size().height},
               {"color", uniform ? toJsonValue(*uniform) : json(nullptr)}};
    }
    out["image"] = image;
  }
  if (const auto* backdrop = dynamic_cast<const SimBackdropView*>(&view)) {
    out["style"] = backdrop->style();
    out["blurQuality"] = text(backdrop->blurQuality());
    out["autosizes"] = backdrop->autosizes();
  }
  if (const auto* button = dynamic_cast<const SimButton*>(&view)) {
    out["buttonType"] = button->buttonType();
    out["actions"] = button->describeActions();
  }
  if (const auto* table = dynamic_cast<const SimTableView*>(&view)) {
    out["style"] = table->style();
    out["rowHeight"] = table->rowHeight();
    out["rows"] = table->rows();
    out["scrollEnabled"] = table->scrollEnabled();
    out["backgroundView"] = idOrNull(table->backgroundView().get());
  }
  if (const auto* iconView = dynamic_cast<const SimIconView*>(&view)) {
    const auto& icon = iconView->simIcon();
    // A folder icon stands for no application.
    bool named = icon && !icon->folder() && !icon->displayIdentifier().empty();
    out["bundleIdentifier"] = named ? json(icon->displayIdentifier()) : json(nullptr);
    out["inDock"] = iconView->isInDock();
    out["labelAlpha"] = iconView->labelAlpha();
    json recognizers = json::array();
    for (const auto& recognizer : iconView->recognizers()) recognizers.push_back(recognizer->describe());
    out["recognizers"] = recognizers;
  }
}

}  // namespace

json describeView(const SimView& view) {
  json subviews = json::array();
  for (const auto& child : view.children()) subviews.push_back(child->id());
  json out = {{"class", view.className()},
              {"frame", toJsonValue(view.frame())},
              {"alpha", view.alpha()},
              {"tag", view.tag()},
              {"superview", idOrNull(view.parent())},
              {"subviews", subviews},
              {"backgroundColor", view.backgroundColor() ? toJsonValue(*view.backgroundColor()) : json(nullptr)}};
  if (auto mask = view.maskLayer()) out["mask"] = describeMask(*mask);
  addKindFields(view, out);
  return out;
}

}  // namespace tessel::sim
