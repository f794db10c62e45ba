#include "app/TarumineApp.h"

int main(int argc, char *argv[])
{
    return TarumineApp::main(argc, argv);
}
