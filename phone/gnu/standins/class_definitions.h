#pragma once

#include "phone/objc/runtime.h"

// Each stand-in class, defined on the runtime under its host name.
namespace tessel::objc::gnu {

Class defineNSObject();
Class defineUIView(Class nsObject);
Class defineSBIconView(Class uiView);
Class defineUIGestureRecognizer(Class nsObject);
Class defineNSNotification(Class nsObject);
Class defineNSNotificationCenter(Class nsObject);

}  // namespace tessel::objc::gnu
