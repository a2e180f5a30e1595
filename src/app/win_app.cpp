#include "app/win_app.h"

namespace {

const CWinApp*& ApplicationObject() {
  static const CWinApp* object = nullptr;
  return object;
}

}  // namespace

CWinApp::CWinApp() {
  ApplicationObject() = this;
}

CWinApp::~CWinApp() {
  ApplicationObject() = nullptr;
}

int AfxWinInit(const void* module, const void* /*previousInstance*/, const char* /*commandLine*/,
               int /*showCommand*/) {
  return ApplicationObject() != nullptr && module != nullptr ? 1 : 0;
}
