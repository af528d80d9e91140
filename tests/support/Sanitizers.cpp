/// Fontconfig and Pango keep the fonts they have found until the process ends, where the leak checker no longer sees
/// them. It is the same amount however much is drawn.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig\nleak:libpango\n"; }
