#pragma once

#include <string>
#include <vector>

#include "phone/objc/runtime.h"
#include "phone/objc/strong.h"

// Stand-ins for what the host objects of the binding reach beyond the shared
// stand-in classes: Foundation's strings, arrays, numbers and index paths;
// more of the toolkit's views, its recognizer classes and alerts; the main
// dispatch queue; CoreFoundation's version and cross-process notifications;
// image contexts, images and paths.
namespace tessel::objc::gnu {

// With the other stand-ins, once per process.
void installHostStandIns();
// Its parts, each in its own file.
void defineHostFoundation(Class nsObject);
void defineHostViews(Class uiView);
void defineHostRecognizers(Class uiGestureRecognizer);
void defineHostAlertView(Class nsObject);
void defineHostGraphics(Class nsObject);

// A new NSArray holding (and retaining) `elements`.
Strong makeArray(const std::vector<id>& elements);

// Runs what was queued on the main queue, in time order, until nothing is
// left (blocks queued meanwhile included); the queue's clock moves on to
// each block's time. Answers how many blocks ran.
int runMainQueue();
// The main queue's clock, in nanoseconds since the process began to queue.
long long mainQueueClock();

// Posts a cross-process notification of that name to its observers.
void postDarwinNotification(const char* name);
// The suspension behaviour the centre was asked for with that name (-1: none).
long darwinSuspensionBehaviorOf(const char* name);

// How many image contexts are open, and the interpolation quality the
// current one was given (-1: none open).
int openImageContexts();
int interpolationQualityOfCurrentContext();

// The elements a path was built with, or that a shape layer was given, as
// "move X Y", "line X Y" and "close".
std::vector<std::string> pathElementsOf(id pathOrShapeLayer);

// What an alert was made with: title, message, cancel title and every
// further title of the nil-terminated list (nil texts read as "<nil>").
std::vector<std::string> alertTextsOf(id alert);

}  // namespace tessel::objc::gnu
