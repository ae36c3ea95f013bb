// The user of real windows: finds widgets, presses, types, and answers dialogs as they come up.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <QWidget>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/linkage_model.h"
#include "core/results.h"
#include "desktop/form.h"
#include "desktop/qt_desktop.h"

class QMessageBox;

namespace verlink::test {

/// A fresh record, fresh screens and a Qt desktop, with the home of the user's files in a folder of its own.
class DesktopTest : public testing::Test {
   protected:
    DesktopTest();
    ~DesktopTest() override;

    std::string Path(const std::string& name) const { return folder_ + "/" + name; }

    /// Queues what the user does when that window is the one in use: "message", "file", "printer", or a screen by
    /// its name. Deeds are done in order; a window that none is queued for fails the test and is closed.
    void Then(const std::string& window, std::function<void(QWidget&)> deed);
    /// The next window is a message with this text; the button of this text is pressed.
    void ThenMessage(const std::string& text, QString button);

    /// The next window is a file dialog; that path is typed and taken.
    void ThenFile(const std::string& path);
    /// From the title to the home screen, with the message that greets there.
    void ThenArrive();
    /// Nobody waits for windows any more: the test itself sees to all that come up.
    void ActAlone() { poll_.stop(); }

    template <class Widget>
    static Widget& Find(QWidget& window, const char* name) {
        auto* found = window.findChild<Widget*>(QString::fromLatin1(name));
        if (!found) throw std::runtime_error(std::string("no widget ") + name);
        return *found;
    }
    static void Click(QWidget& window, const char* button);
    /// Picks an entry of the window's menus.
    static void Pick(QWidget& window, const char* entry);
    static void Type(QWidget& window, const char* box, const QString& text);

    desktop::QtDesktop qt;

   private:
    void Poll();

    struct Deed {
        std::string window;
        std::function<void(QWidget&)> act;
    };
    std::string folder_;
    std::deque<Deed> deeds_;
    QTimer poll_;
    QWidget* puzzling_ = nullptr;  ///< a window that nothing queued is for
    int puzzled_ = 0;
    bool posted_ = false;
    std::vector<QWidget*> at_work_;  ///< the windows of the deeds that have not returned yet
};

}  // namespace verlink::test
