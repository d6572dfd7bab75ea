#include "cli/commands.h"

int main(int argc, char** argv) { return jx::RunCommandLine(argc, argv); }
