/* A library with one function, which tests look up and call. */

__attribute__((visibility("default"))) int ProbeAnswer(void);

int ProbeAnswer(void) { return 42; }
