#include "model/error_path.h"

#include "model/number_text.h"
#include "model/ports.h"

namespace tt {

std::string UnexpectedErrorText(const AppError& err) {
    return std::string("The system has detected an unexpected error.") + kCrLf + "Error #" +
           Str(err.Number()) + ":  " + err.Text() + ", Source:  " + err.Source();
}

void ShowUnexpectedError(const AppError& err) {
    Shell().SetBusy(false);
    Beep(3);
    MsgBox(UnexpectedErrorText(err));
    Shell().SetBusy(false);
}

}  // namespace tt
