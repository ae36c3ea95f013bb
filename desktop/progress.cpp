// The dialog of progress.
#include "desktop/progress.h"

#include <QApplication>
#include <QProgressDialog>
#include <cmath>

#include "desktop/text.h"

namespace verlink::desktop {

void showProgress(const std::string& what, const platform::Work& work) {
    constexpr int kWhole = 1000, kUnseen = 500;  // milliseconds
    QProgressDialog dialog(toQt(what) + QStringLiteral("..."), QStringLiteral("Cancel"), 0, kWhole,
                           QApplication::activeWindow());
    dialog.setObjectName(QStringLiteral("dlg_Progress"));
    dialog.setWindowModality(Qt::ApplicationModal);
    dialog.setMinimumDuration(kUnseen);
    dialog.setAutoClose(false);
    dialog.setAutoReset(false);
    dialog.setValue(0);
    work([&dialog](double done) {
        dialog.setValue(static_cast<int>(std::lround(done * kWhole)));
        return !dialog.wasCanceled();
    });
}

}  // namespace verlink::desktop
