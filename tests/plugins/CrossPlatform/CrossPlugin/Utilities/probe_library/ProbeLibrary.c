/* A library with one function to be found and called. */

__attribute__((visibility("default"))) int ProbeAnswer(void);

int ProbeAnswer(void) { return 42; }
