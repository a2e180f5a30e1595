// Start-up and shutdown of the GDI+ image library.
#pragma once

#include <memory>

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
  // What the system asks for at the shutdown. It may be set after the start, by whoever needs GDI+
  // first, so it is no part of the session, which its owner may keep constant.
  struct Token;
  std::unique_ptr<Token> token_;
};

}  // namespace platform
