#include "app/TarumineApp.h"
#include "platform/Process.h"

int main(int argc, char *argv[])
{
    Process::begin();
    Process::end(TarumineApp::main(argc, argv));
}
