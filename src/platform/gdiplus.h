// Start-up and shutdown of the GDI+ image library.
#pragma once

#include <cstdint>

namespace platform {

// Starts GDI+ when made and shuts it down at Stop() or, at the latest, when it goes. GDI+ is the
// system's own on Windows; elsewhere it is a library loaded at run time, and without that library
// the session does nothing and every image operation fails with a status.
class GdiplusSession {
 public:
  GdiplusSession();
  ~GdiplusSession();
  GdiplusSession(const GdiplusSession&) = delete;
  GdiplusSession& operator=(const GdiplusSession&) = delete;

  void Stop();

 private:
  std::uintptr_t token_ = 0;
};

}  // namespace platform
