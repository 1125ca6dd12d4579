extern "C" __attribute__((visibility("default"))) int get_nothing() {
  return 0;
}
