// Stands in for the first-run wizard: leaves word of each run and of its command line.
#include "shell/record.h"

int main() {
    standin::WriteText(standin::WizardCommandLineValue, GetCommandLineA());
    standin::WriteNumber(standin::WizardRunsValue, standin::ReadNumber(standin::WizardRunsValue) + 1);
    return 0;
}
