#include "phone/binding/exported_state.h"

#include <cstddef>

#include "phone/binding/bridge.h"
#include "phone/binding/loaded_library.h"

static_assert(sizeof(long) == sizeof(void*), "NSInteger is pointer-sized");
static_assert(sizeof(int) == 4, "the 32-bit values are int");

extern "C" {
BOOL darkMode = false;
long activationMethod = 0;
CFMutableArrayRef iconViews = nullptr;
CFMutableArrayRef folders = nullptr;
BOOL hasUnlockedOnce = false;
id bulletinViewController = nullptr;
id globalViewSender = nullptr;
id iconView = nullptr;
id arrowView = nullptr;
long arrowPosition = 0;
int checkIconOriginY = 0;
BOOL iconExistsInFolder = false;
double originToStartFrom = 0;
int verticalOffset = 0;
tessel::objc::Rect oldTesselFrame{};
tessel::objc::Rect oldArrowFrame{};
tessel::objc::Rect newTesselFrame{};
tessel::objc::Rect intermediateTesselFrame{};
tessel::objc::Rect intermediateArrowFrame{};
double realKeyboardDisplacement = 0;
}

namespace tessel::phone {
namespace {

objc::Rect exported(const host::Rect& rect) { return {{rect.x, rect.y}, {rect.width, rect.height}}; }

template <class T>
id exported(const host::Weak<T>& object) {
  return objectOf(object.lock());
}

// An exported collection and how much of the library's list it has taken
// in. The library's lists only grow, or are emptied as a whole, so each call
// adds what is new, which keeps a call's cost independent of how many icon
// views there are. An element freed later stays named, as in any array that
// does not retain its elements.
struct FollowedList {
  CFMutableArrayRef& collection;
  std::size_t followed = 0;

  template <class WeakObjects>
  void follow(const WeakObjects& objects) {
    if (collection == nullptr) collection = CFArrayCreateMutable(nullptr, 0, nullptr);
    if (collection == nullptr) return;
    if (objects.size() < followed) {
      CFArrayRemoveAllValues(collection);
      followed = 0;
    }
    for (; followed < objects.size(); ++followed) {
      if (id live = exported(objects[followed])) CFArrayAppendValue(collection, live);
    }
  }
};

constinit FollowedList exportedIconViews{iconViews};
constinit FollowedList exportedFolders{folders};

}  // namespace

void publishSharedState(const SharedState& state) {
  darkMode = state.darkMode;
  activationMethod = static_cast<long>(state.activationMethod);
  exportedIconViews.follow(state.iconViews);
  exportedFolders.follow(state.folders);
  hasUnlockedOnce = state.hasUnlockedOnce;
  bulletinViewController = exported(state.bulletinViewController);
  globalViewSender = exported(state.globalViewSender);
  iconView = exported(state.iconView);
  arrowView = exported(state.arrowView);
  arrowPosition = static_cast<long>(state.arrowPosition);
  checkIconOriginY = state.checkIconOriginY;
  iconExistsInFolder = state.iconExistsInFolder;
  originToStartFrom = state.originToStartFrom;
  verticalOffset = state.verticalOffset;
  oldTesselFrame = exported(state.oldTesselFrame);
  oldArrowFrame = exported(state.oldArrowFrame);
  newTesselFrame = exported(state.newTesselFrame);
  intermediateTesselFrame = exported(state.intermediateTesselFrame);
  intermediateArrowFrame = exported(state.intermediateArrowFrame);
  realKeyboardDisplacement = state.realKeyboardDisplacement;
}

void libraryReturned() noexcept {
  try {
    if (const Library* library = loadedLibrary()) publishSharedState(library->shared());
  } catch (...) {
  }
}

}  // namespace tessel::phone
