#include <cstdlib>

// Fixes the seed, so that property tests try the same cases in every run. RC_PARAMS overrides it.
namespace {

[[maybe_unused]] const int kIsSet = setenv("RC_PARAMS", "seed=20240229 max_success=300", 0);

}  // namespace
