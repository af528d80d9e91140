/// What the leak checker passes over: Pango keeps fontconfig's patterns for as long as a thread or the program lives,
/// Tesseract its lists of punctuation and numbers.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig.so\nleak:libtesseract.so\n"; }
