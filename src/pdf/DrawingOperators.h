#pragma once

#include "typesetting/Page.h"

#include <string>

/// The operators that draw a page. Font n is the resource /Fn.
std::string drawingOperators(const Page &page);
