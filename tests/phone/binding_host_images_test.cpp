#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "host/path.h"
#include "imaging/average_color.h"
#include "imaging/color_category.h"
#include "phone/binding/bridge.h"
#include "phone/binding/phone_host.h"
#include "phone/gnu/standins/host_stand_ins.h"
#include "phone/objc/autorelease_pool.h"

namespace tessel::phone {
namespace {

using objc::gnu::openImageContexts;

TEST(PhoneBinding, ImageContextFillsAndAnswersAnImageOfItsPixels) {
  objc::AutoreleasePool pool;
  PhoneHost host;
  // The library's own solid image: a frame with an origin leaves its leading
  // column transparent.
  auto image = imageWithColorAndFrame(host, {1.0, 0.5, 0.0, 1.0}, {1, 0, 3, 2});
  ASSERT_TRUE(image);
  EXPECT_EQ(openImageContexts(), 0);

  EXPECT_EQ(image->size(), (host::Size{3, 2}));
  EXPECT_EQ(image->width(), 3u);
  EXPECT_EQ(image->height(), 2u);
  EXPECT_EQ(image->bytesPerRow(), 12u);
  EXPECT_EQ(image->bitsPerPixel(), 32u);
  const std::vector<std::uint8_t> transparent{0, 0, 0, 0};
  const std::vector<std::uint8_t> orange{0, 128, 255, 255};
  std::vector<std::uint8_t> expected;
  for (const auto* pixel : {&transparent, &orange, &orange, &transparent, &orange, &orange}) {
    expected.insert(expected.end(), pixel->begin(), pixel->end());
  }
  EXPECT_EQ(image->copyData(), expected);
}

TEST(PhoneBinding, MergedColourIsReadFromAOnePixelContext) {
  objc::AutoreleasePool pool;
  PhoneHost host;
  auto image = imageWithColorAndFrame(host, {0.2, 0.4, 1.0, 1.0}, {0, 0, 8, 8});
  const host::Color merged = mergedColor(host, image);
  EXPECT_NEAR(merged.red, 0.2, 0.5 / 255);
  EXPECT_NEAR(merged.green, 0.4, 0.5 / 255);
  EXPECT_NEAR(merged.blue, 1.0, 0.5 / 255);
  EXPECT_EQ(openImageContexts(), 0);
}

TEST(PhoneBinding, ImageContextEndsOnceAndIsNothingAfterwards) {
  PhoneHost host;
  auto outer = host.beginImageContext({2, 2});
  auto inner = host.beginImageContextWithOptions({1, 1}, /*opaque*/ true, /*scale*/ 0.0);
  ASSERT_EQ(openImageContexts(), 2);
  inner->setInterpolationQuality(4);
  EXPECT_EQ(objc::gnu::interpolationQualityOfCurrentContext(), 4);
  // Scale 0 is the screen's: two pixels a point here.
  EXPECT_EQ(inner->bitmapData().size(), 2u * 2u * 4u);

  inner->end();
  inner->end();
  EXPECT_EQ(openImageContexts(), 1);
  EXPECT_TRUE(inner->bitmapData().empty());
  EXPECT_FALSE(inner->imageFromContext());
  outer->end();
  EXPECT_EQ(openImageContexts(), 0);
}

TEST(PhoneBinding, PathElementsGoToThePathAndToTheLayerThatTakesThem) {
  PhoneHost host;
  using Op = host::Path::Op;
  const host::Path triangle{{{Op::moveTo, {10, 0}}, {Op::lineTo, {20, 10}}, {Op::lineTo, {0, 10}}, {Op::close, {}}}};
  const std::vector<std::string> sent{"move 10 0", "line 20 10", "line 0 10", "close"};

  auto path = host.makeBezierPath();
  path->moveToPoint({10, 0});
  path->addLineToPoint({20, 10});
  path->addLineToPoint({0, 10});
  path->closePath();
  EXPECT_EQ(objc::gnu::pathElementsOf(objectOf(path)), sent);
  EXPECT_EQ(path->CGPath(), triangle);
  EXPECT_EQ(referenceTo<host::BezierPath>(objectOf(path))->CGPath(), triangle);

  auto mask = host.makeShapeLayer();
  mask->setPath(path->CGPath());
  EXPECT_EQ(objc::gnu::pathElementsOf(objectOf(mask)), sent);
  EXPECT_EQ(referenceTo<host::ShapeLayer>(objectOf(mask))->path(), triangle);
  EXPECT_EQ(host.makeShapeLayer()->path(), host::Path{});
}

}  // namespace
}  // namespace tessel::phone
