// A bundle's module that crashes as soon as it is loaded.

namespace {

[[maybe_unused]] const int never = (__builtin_trap(), 0);

}
