// Stands in for the first-run wizard: leaves word of each run and of its command line.
#include "shell/record.h"

int main() {
    standin::WriteText(standin::StandInKey, standin::WizardCommandLineValue, GetCommandLineA());
    standin::WriteNumber(standin::StandInKey, standin::WizardRunsValue,
                         standin::NumberOr(standin::StandInKey, standin::WizardRunsValue, 0) + 1);
    return 0;
}
