#pragma once

#include <cstdint>

// The platform's own codes and names, as the library passes them.
namespace tessel::host::platform {

// `UISwipeGestureRecognizerDirection`.
inline constexpr std::uint64_t kSwipeDirectionRight = 1;
inline constexpr std::uint64_t kSwipeDirectionUp = 4;
inline constexpr std::uint64_t kSwipeDirectionDown = 8;

// `UIButtonTypeRoundedRect` and `UIControlEventTouchUpInside`.
inline constexpr std::int64_t kButtonTypeRoundedRect = 1;
inline constexpr std::uint64_t kControlEventTouchUpInside = 64;

// `UITableViewStyleGrouped` and `UITableViewCellStyleSubtitle`.
inline constexpr std::int64_t kTableViewStyleGrouped = 1;
inline constexpr std::int64_t kTableViewCellStyleSubtitle = 3;

// `kCGInterpolationMedium` and `kCGBlendModeCopy`.
inline constexpr int kInterpolationMedium = 4;
inline constexpr int kBlendModeCopy = 17;

// `CFNotificationSuspensionBehaviorCoalesce`.
inline constexpr std::int64_t kSuspensionBehaviorCoalesce = 2;

// `kCFCoreFoundationVersionNumber` of the host releases whose behaviour
// differs: up to the first, notifications live in the list controller; from
// the second, an identifier finds one application and the web-view framework
// must be loaded by hand.
inline constexpr double kLastListControllerRelease = 800.0;
inline constexpr double kWebKitSeparateRelease = 1140.1;

// Keyboard notifications and the user-info key of the keyboard's end frame.
inline constexpr const char* kKeyboardWillShowNotification = "UIKeyboardWillShowNotification";
inline constexpr const char* kKeyboardWillHideNotification = "UIKeyboardWillHideNotification";
inline constexpr const char* kKeyboardFrameEndUserInfoKey = "UIKeyboardFrameEndUserInfoKey";

}  // namespace tessel::host::platform
