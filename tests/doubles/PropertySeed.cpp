#include <cstdlib>

// A property's cases are a function of a seed that is the same in every run, unless the caller
// gives another.
namespace {

[[maybe_unused]] const int kIsSet = setenv("RC_PARAMS", "seed=20240229 max_success=300", 0);

}  // namespace
