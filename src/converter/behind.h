// Work that goes on beside the caller's.
#pragma once

#include <future>
#include <utility>

namespace animate {

// Does one thing after the other while the caller goes on. What one throws goes to the caller of
// the next operation.
class Behind {
 public:
  // Waits for what is being done, and begins this.
  template <typename Work>
  void Do(Work work) {
    Finish();
    done_ = std::async(std::launch::async, std::move(work));
  }

  // Waits for what is being done.
  void Finish() {
    if (done_.valid()) {
      done_.get();
    }
  }

 private:
  // Its end waits too.
  std::future<void> done_;
};

}  // namespace animate
