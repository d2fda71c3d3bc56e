#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "host/object.h"

namespace tessel::sim {

class SimClass;
class SimHost;

// Every object that the simulated host makes and names: it knows its host,
// its class and its id ("v…" for views, "o…" for the rest), given once by
// the registry and never reused.
class SimObject : public virtual host::Object, public std::enable_shared_from_this<SimObject> {
 public:
  SimObject(SimHost& host, std::shared_ptr<SimClass> cls);
  ~SimObject() override = default;
  SimObject(const SimObject&) = delete;
  SimObject& operator=(const SimObject&) = delete;

  // |host::Object|
  host::Ref<host::Class> objectClass() const override;
  bool isKindOfClass(const host::Ref<host::Class>& cls) const override;
  bool respondsToSelector(std::string_view selector) const override;

  // Runs once the object has its id: where it makes the parts it owns.
  virtual void awake() {}
  // The object stored in an instance variable of that name, or nothing.
  virtual host::Ref<host::Object> instanceVariable(std::string_view /*name*/) const { return {}; }

  SimHost& simHost() const { return *host_; }
  const std::shared_ptr<SimClass>& simClass() const { return class_; }
  std::string className() const;
  bool isKindOf(std::string_view className) const;
  const std::string& id() const { return id_; }
  void assignId(std::string id) { id_ = std::move(id); }

  // This object as one of its own kinds.
  template <class T>
  std::shared_ptr<T> self() {
    return std::dynamic_pointer_cast<T>(shared_from_this());
  }
  template <class T>
  std::shared_ptr<const T> self() const {
    return std::dynamic_pointer_cast<const T>(shared_from_this());
  }

 private:
  SimHost* host_;
  std::shared_ptr<SimClass> class_;
  std::string id_;
};

// The id of a host object, or "" when it is nothing or not the host's own.
std::string idOf(const host::Object* object);
template <class T>
std::string idOf(const host::Ref<T>& object) {
  return idOf(static_cast<const host::Object*>(object.get()));
}

}  // namespace tessel::sim
