// The account of an animation for other programs.
#pragma once

#include <string>

#include "animate/account.h"
#include "film/failure.h"

namespace animate {

// One line of JSON, with its line end: what is known, and why there is no animation when it failed.
std::string JsonOf(const Account& account, const Failure* failure = nullptr);

}  // namespace animate
