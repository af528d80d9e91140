#include "Tamba/TambaApp.h"

int main(int argc, char** argv) { return tamba::runTamba(argc, argv); }
