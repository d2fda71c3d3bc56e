#pragma once

#ifndef __BLOCKS__
#error "phone/objc/block.h makes blocks: compile with -fblocks"
#endif

#include <functional>
#include <type_traits>
#include <utility>

#include "phone/objc/message.h"
#include "phone/objc/runtime.h"

// The block runtime: libSystem on the phone, libBlocksRuntime on Linux.
extern "C" {
void* _Block_copy(const void* block);
void _Block_release(const void* block);
}

namespace tessel::objc {

// A heap block, owned: copying it takes another reference (a heap block is
// never copied again), destroying it gives one back; the captured C++ state
// lives until the last reference goes, wherever the runtime has passed it.
template <typename Signature>
class Block;

template <typename R, typename... Args>
class Block<R(Args...)> {
 public:
  using Pointer = R (^)(Args...);

  Block() = default;
  // Takes over one reference to a heap block.
  static Block adopt(Pointer heapBlock) { return Block(heapBlock); }

  Block(const Block& other) : block_(retained(other.block_)) {}
  Block(Block&& other) noexcept : block_(std::exchange(other.block_, nullptr)) {}
  Block& operator=(Block other) noexcept {
    std::swap(block_, other.block_);
    return *this;
  }
  ~Block() {
    if (block_) _Block_release(reinterpret_cast<const void*>(block_));
  }

  Pointer get() const { return block_; }
  // The block as the object a method takes.
  id object() const { return reinterpret_cast<id>(block_); }
  explicit operator bool() const { return block_ != nullptr; }

  R operator()(Args... args) const {
    if (!block_) return emptyResult<R>();
    return block_(args...);
  }

 private:
  explicit Block(Pointer block) : block_(block) {}
  static Pointer retained(Pointer block) {
    if (!block) return block;
    return reinterpret_cast<Pointer>(_Block_copy(reinterpret_cast<const void*>(block)));
  }

  Pointer block_ = nullptr;
};

// A heap block running `body`. The host runs blocks (animations, queued
// work, completions) and cannot unwind a C++ exception: a throwing body
// yields emptyResult<R>() instead.
template <typename R, typename... Args>
Block<R(Args...)> makeBlock(std::function<R(Args...)> body) {
  static_assert(std::is_void_v<R> || std::is_trivially_copyable_v<R>, "a block returns a C value");
  auto guarded = [body = std::move(body)](Args... args) -> R {
    try {
      return body(args...);
    } catch (...) {
      return emptyResult<R>();
    }
  };
  typename Block<R(Args...)>::Pointer onStack = ^R(Args... args) {
    return guarded(args...);
  };
  return Block<R(Args...)>::adopt(
      reinterpret_cast<typename Block<R(Args...)>::Pointer>(_Block_copy(reinterpret_cast<const void*>(onStack))));
}

// makeBlock<void(BOOL)>([](BOOL finished) { ... })
template <typename Signature, typename F>
Block<Signature> makeBlock(F body) {
  return makeBlock(std::function<Signature>(std::move(body)));
}

}  // namespace tessel::objc
