#pragma once

// What most tests include, and what takes longest to read.
#include <cardwright/cardwright.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>
