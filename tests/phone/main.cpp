#include <gtest/gtest.h>

#include "phone/gnu/standins/stand_ins.h"

namespace {

// The stand-in host classes exist before the first test, as the host's
// classes exist before the binding loads; listing the tests defines nothing.
class StandInClasses : public testing::Environment {
 public:
  void SetUp() override { tessel::objc::gnu::installStandIns(); }
};

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  testing::AddGlobalTestEnvironment(new StandInClasses());
  return RUN_ALL_TESTS();
}
