#pragma once

#include <cstdint>
#include <vector>

#include "host/object.h"
#include "host/string.h"

namespace tessel::host {

// A notification as the host keeps it.
class Bulletin : public virtual Object {
 public:
  virtual String title() const { return {}; }
  virtual String message() const { return {}; }
  // The arrival time, in seconds on the host's clock (see Host::now).
  virtual double date() const { return 0; }
};

using BulletinArray = std::vector<Ref<Bulletin>>;

// One application's section of the notification list (current releases).
class BulletinListSection : public virtual Object {
 public:
  virtual String sectionID() const { return {}; }
  virtual BulletinArray bulletins() const { return {}; }
};

class BulletinSectionController : public virtual Object {
 public:
  virtual Ref<BulletinListSection> representedListSection() const { return {}; }
};

// `SBBulletinViewController`.
class BulletinViewController : public virtual Object {
 public:
  virtual Ref<BulletinSectionController> sectionAtIndex(std::int64_t /*index*/) const { return {}; }
};

// A section of the older releases' list controller.
class LegacyBulletinSection : public virtual Object {
 public:
  virtual String sectionID() const { return {}; }
  virtual std::uint64_t bulletinCount() const { return 0; }
  virtual Ref<Bulletin> bulletinAtIndex(std::uint64_t /*index*/) const { return {}; }
};

// `SBBulletinListController` of older releases.
class BulletinListController : public virtual Object {
 public:
  virtual Ref<LegacyBulletinSection> _sectionAtIndex(std::int64_t /*index*/) const { return {}; }
};

}  // namespace tessel::host
