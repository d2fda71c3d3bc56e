#include "sim/recorder.h"

namespace tessel::sim {

using nlohmann::json;

void Recorder::line(std::string_view kind, json fields) {
  json entry = {{"t", clock_.now}, {"kind", kind}};
  for (auto& [key, value] : fields.items()) entry[key] = std::move(value);
  if (traceSink_)
    traceSink_(entry);
  else
    trace_.push_back(std::move(entry));
}

void Recorder::streamTrace(std::function<void(const json&)> sink) {
  traceSink_ = std::move(sink);
  if (!traceSink_) return;
  for (const auto& kept : trace_) traceSink_(kept);
  trace_.clear();
  trace_.shrink_to_fit();
}

void Recorder::event(std::string_view what, json fields) {
  fields["do"] = what;
  line("event", std::move(fields));
}

void Recorder::hookInstalled(const std::string& className, std::string_view selector) {
  std::string name = className + " " + std::string(selector);
  hooks_.push_back(name);
  line("hook", {{"hook", name}});
}

void Recorder::hostCall(std::string_view call, const std::string& target, json args) {
  json entry = {{"t", clock_.now},
                {"call", call},
                {"target", target.empty() ? json(nullptr) : json(target)},
                {"args", std::move(args)}};
  hostCalls_.push_back(entry);
  entry.erase("t");
  line("hostCall", std::move(entry));
}

void Recorder::dispatch(std::string_view queue, double due) { line("dispatch", {{"queue", queue}, {"due", due}}); }

void Recorder::animation(const json& record) { line("animation", record); }

}  // namespace tessel::sim
