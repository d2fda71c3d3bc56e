#include <benchmark/benchmark.h>

#include <any>
#include <memory>
#include <vector>

#include "hooks/library.h"
#include "host/hooked_methods.h"

namespace tessel {
namespace {

// The library loaded into a host that hands out its layout replacement, and
// icon views whose icons are not applications (the layout work without the
// gesture registration, which a layout adds for application icons only).
class LayoutHost : public host::Host {
 public:
  class Runtime : public host::Runtime {
   public:
    std::any replace(const host::Ref<host::Class>&, const host::MethodName& method, std::any replacement) override {
      if (method.selector == host::hooked::iconViewLayoutSubviews.selector) layout = std::move(replacement);
      return {};
    }
    std::any layout;
  };
  host::Ref<host::Runtime> runtime() override { return host::Ref<host::Runtime>(runtime_); }
  std::shared_ptr<Runtime> runtime_ = std::make_shared<Runtime>();
};

// One full layout pass of N icon views that the library has seen before, as
// the home screen lays its icons out on every scroll and edit.
void BM_LayoutPass(benchmark::State& state) {
  LayoutHost host;
  auto library = Library::load(host);
  using Layout = std::remove_cvref_t<decltype(host::hooked::iconViewLayoutSubviews)>::Implementation;
  auto layout = *std::any_cast<Layout>(&host.runtime_->layout);
  std::vector<host::Ref<host::IconView>> views;
  for (int i = 0; i < state.range(0); ++i) views.push_back(host::make<host::IconView>());
  for (const auto& view : views) layout(view);
  for (auto _ : state) {
    for (const auto& view : views) layout(view);
  }
  state.counters["per_icon"] = benchmark::Counter(
      static_cast<double>(state.range(0)), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_LayoutPass)->Arg(10)->Arg(100)->Arg(1000)->Arg(5000);

}  // namespace
}  // namespace tessel
