// Whether the frames were written by the product's own viewer.
#pragma once

// The own-images flag, set by the option "-TESSARA_IMAGES": with it, only names that follow the
// viewer's pattern count as frames.
inline bool g_ownImages = false;
