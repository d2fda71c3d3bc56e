#include <cstdarg>
#include <string>
#include <utility>
#include <vector>

#include "phone/gnu/standins/host_stand_ins.h"
#include "phone/objc/class_builder.h"
#include "phone/objc/message.h"
#include "phone/objc/owned_object.h"
#include "phone/objc/runtime.h"
#include "phone/objc/selector.h"

namespace tessel::objc::gnu {
namespace {

using namespace tessel::objc::literals;

struct AlertTexts {
  std::vector<std::string> texts;
};

std::string textOf(id string) {
  const char* text = send<const char*>(string, "UTF8String"_sel);
  return text == nullptr ? "<nil>" : text;
}

// The toolkit's initialiser is variadic: the further button titles follow
// `otherButtonTitles` up to a nil. Defined as a C variadic function, so that
// a caller using any other function type is caught by the sanitizers.
id initWithTitles(id self, SEL /*selector*/, id title, id message, id /*delegate*/, id cancelButtonTitle,
                  id otherButtonTitles, ...) {
  std::vector<std::string> texts{textOf(title), textOf(message), textOf(cancelButtonTitle)};
  va_list further;
  va_start(further, otherButtonTitles);
  for (id next = otherButtonTitles; next != nullptr; next = va_arg(further, id)) texts.push_back(textOf(next));
  va_end(further);
  attachOwned<AlertTexts>(self, std::move(texts));
  return self;
}

}  // namespace

void defineHostAlertView(Class nsObject) {
  ClassBuilder builder("UIAlertView", nsObject);
  Class alertView = builder.registerClass();
  class_addMethod(alertView, "initWithTitle:message:delegate:cancelButtonTitle:otherButtonTitles:"_sel,
                  reinterpret_cast<IMP>(&initWithTitles), "@@:@@@@@");
}

std::vector<std::string> alertTextsOf(id alert) {
  const auto* texts = findOwned<AlertTexts>(alert);
  return texts == nullptr ? std::vector<std::string>() : texts->texts;
}

}  // namespace tessel::objc::gnu
