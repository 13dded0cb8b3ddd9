// Who wants to hear of shell events. Wine takes a registration (shell32.dll, ordinal 181), answers that it is done, and
// keeps nothing.
#pragma once

namespace standin {

// From here on the calls in this process leave a mark on the registered window: the property `ListenerProperty`, whose
// value is the window of the shell that ran then. So a registration ends with its window, and with that shell.
void KeepRegistrations();

}  // namespace standin
