// The application object and the framework's start-up call for a console program.
#pragma once

// A program holds exactly one object of a class derived from this one; it registers itself as the
// application object for as long as it lives.
class CWinApp {
 public:
  CWinApp();
  virtual ~CWinApp();
  CWinApp(const CWinApp&) = delete;
  CWinApp& operator=(const CWinApp&) = delete;
};

// Starts the framework. `module` is the program's own module handle; the previous instance, the
// raw command line and the show command are accepted as the framework asks for them and not used.
// Returns 1, or 0 when there is no application object or no module handle.
int AfxWinInit(const void* module, const void* previousInstance, const char* commandLine,
               int showCommand);
