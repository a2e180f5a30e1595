// The sweep of leftover working images.
#pragma once

#include "mfc/cstring.h"

// Deletes every image file of `folder` whose name marks it as a working image (it contains
// "qmbImg"), sub-folders excepted. Silent: a folder that cannot be searched and a file that cannot
// be deleted are passed over.
void CleanTrails(const CString& folder);
