#include "support/test_headers.h"
