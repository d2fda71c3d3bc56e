#pragma once

#include <cstdint>
#include <string_view>

#include "host/object.h"
#include "host/shield.h"

// The library's two classes as the host sees them. The host makes an object
// of each class and sends it the messages below; behind the object stands a
// delegate that the library implements. Every message is shielded here, once,
// so that nothing the library throws reaches the host.
namespace tessel::host {

class GestureRecognizer;
class Notification;
class TableView;
class TableViewCell;
class View;
struct IndexPath;

// `TesselNotificationController`: the target of the activation recognizers
// and the dismiss button, and the observer of keyboard notifications.
class ControllerDelegate {
 public:
  virtual ~ControllerDelegate() = default;

  void handleIconHeldFromSender(const Ref<Object>& sender) noexcept;
  void removeTesselViewsFromView(const Ref<Object>& sender) noexcept;
  void keyboardWillShowOrHide(const Ref<Object>& sender) noexcept;

 protected:
  virtual void iconHeld(const Ref<GestureRecognizer>& sender) = 0;
  virtual void removeViews(const Ref<View>& view) = 0;
  virtual void keyboardChanged(const Ref<Notification>& notification) = 0;
};

// An action message of the controller: its selector and how the host
// delivers it with its sender.
struct ControllerAction {
  std::string_view selector;
  void (ControllerDelegate::*deliver)(const Ref<Object>& sender) noexcept;
};

namespace action {
inline constexpr ControllerAction handleIconHeldFromSender{"handleIconHeldFromSender:",
                                                           &ControllerDelegate::handleIconHeldFromSender};
inline constexpr ControllerAction removeTesselViewsFromView{"removeTesselViewsFromView:",
                                                            &ControllerDelegate::removeTesselViewsFromView};
inline constexpr ControllerAction keyboardWillShowOrHide{"keyboardWillShowOrHide:",
                                                         &ControllerDelegate::keyboardWillShowOrHide};
}  // namespace action

// `TesselGenericNotificationView`: a view the host lays out, and the data
// source and delegate of the table inside it.
class ViewDelegate {
 public:
  virtual ~ViewDelegate() = default;

  void layoutSubviews() noexcept;
  std::int64_t tableViewNumberOfRowsInSection(const Ref<TableView>& table, std::int64_t section) noexcept;
  Ref<TableViewCell> tableViewCellForRowAtIndexPath(const Ref<TableView>& table, const IndexPath& indexPath) noexcept;
  void tableViewDidSelectRowAtIndexPath(const Ref<TableView>& table, const IndexPath& indexPath) noexcept;

 protected:
  virtual void layout() = 0;
  virtual std::int64_t numberOfRows(const Ref<TableView>& table, std::int64_t section) = 0;
  virtual Ref<TableViewCell> cellForRow(const Ref<TableView>& table, const IndexPath& indexPath) = 0;
  virtual void didSelectRow(const Ref<TableView>& table, const IndexPath& indexPath) = 0;
};

}  // namespace tessel::host
