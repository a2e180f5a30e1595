// Start-up and shutdown of the GDI+ image library.
#pragma once

#include <cstdint>

namespace platform {

// Starts GDI+ when made and shuts it down at Stop() or, at the latest, when it goes; one session at
// a time. GDI+ is the system's own on Windows. Elsewhere it is a library that costs more than the
// rest of a run, so it is loaded and started by the first image operation that the session sees;
// without that library every image operation fails.
class GdiplusSession {
 public:
  GdiplusSession();
  ~GdiplusSession();
  GdiplusSession(const GdiplusSession&) = delete;
  GdiplusSession& operator=(const GdiplusSession&) = delete;

  void Stop();

 private:
  // What the system asks for at the shutdown; 0 without a session.
  std::uintptr_t token_ = 0;
};

}  // namespace platform
