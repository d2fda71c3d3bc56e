#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "phone/objc/owned_object.h"
#include "phone/objc/runtime.h"
#include "phone/objc/strong.h"
#include "phone/objc/weak.h"
#include "tests/phone/objc_test_support.h"

namespace tessel::objc {
namespace {

// Writes its name into `log` when it is destroyed.
class Recorder {
 public:
  Recorder(std::vector<std::string>* log, std::string name) : log_(log), name_(std::move(name)) {}
  Recorder(const Recorder&) = delete;
  Recorder& operator=(const Recorder&) = delete;
  ~Recorder() { log_->push_back(name_); }
  const std::string& name() const { return name_; }

 private:
  std::vector<std::string>* log_;
  std::string name_;
};

struct OtherState {
  int value = 0;
};

TEST(ObjcRuntime, OwnedCppObjectDestroyedWithRuntimeObject) {
  std::vector<std::string> destroyed;
  Strong owner = makeObject("UIView");
  Recorder* recorder = attachOwned<Recorder>(owner.get(), &destroyed, "panel state");
  ASSERT_NE(recorder, nullptr);
  EXPECT_EQ(findOwned<Recorder>(owner.get()), recorder);

  Strong another = owner;
  another = nullptr;
  EXPECT_TRUE(destroyed.empty());

  owner = nullptr;
  EXPECT_EQ(destroyed, std::vector<std::string>{"panel state"});
}

TEST(ObjcRuntime, AttachingAgainReplacesTheOwnedObject) {
  std::vector<std::string> destroyed;
  Strong owner = makeObject("NSObject");
  attachOwned<Recorder>(owner.get(), &destroyed, "first");
  Recorder* second = attachOwned<Recorder>(owner.get(), &destroyed, "second");

  EXPECT_EQ(destroyed, std::vector<std::string>{"first"});
  EXPECT_EQ(findOwned<Recorder>(owner.get()), second);
  owner = nullptr;
  EXPECT_EQ(destroyed, (std::vector<std::string>{"first", "second"}));
}

TEST(ObjcRuntime, OwnedObjectsAreFoundByTypeAndOwner) {
  std::vector<std::string> destroyed;
  Strong owner = makeObject("NSObject");
  Strong stranger = makeObject("NSObject");
  attachOwned<Recorder>(owner.get(), &destroyed, "recorder");
  attachOwned<OtherState>(owner.get())->value = 5;

  EXPECT_EQ(findOwned<Recorder>(owner.get())->name(), "recorder");
  EXPECT_EQ(findOwned<OtherState>(owner.get())->value, 5);
  EXPECT_EQ(findOwned<Recorder>(stranger.get()), nullptr);
  EXPECT_EQ(findOwned<Recorder>(nullptr), nullptr);
  EXPECT_EQ(attachOwned<Recorder>(nullptr, &destroyed, "nobody's"), nullptr);
  EXPECT_TRUE(destroyed.empty());  // nothing is made for nobody
}

}  // namespace
}  // namespace tessel::objc
