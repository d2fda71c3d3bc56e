#pragma once

namespace tessel::sim {

class SimRuntime;

// Makes the home screen's and the toolkit's classes known, with their
// superclasses and the selectors their instances answer.
void declareHostClasses(SimRuntime& runtime);

}  // namespace tessel::sim
