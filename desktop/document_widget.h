// Shows a document of the manual, or says that it is not installed.
#pragma once

#include <QWidget>

class QLabel;

namespace verlink::desktop {

/// Where a document of the manual lies, by its path below the folder of the help; empty when it is not installed.
QString helpDocument(const QString& document);

class DocumentWidget : public QWidget {
   public:
    explicit DocumentWidget(QWidget* parent);
    /// A path below the folder of the help; empty for none.
    void show(const QString& document);
    /// What is said in place of a document; empty while one is shown.
    QString note() const;

   private:
    class Pages;
    QLabel* note_;
    Pages* pages_;
};

}  // namespace verlink::desktop
