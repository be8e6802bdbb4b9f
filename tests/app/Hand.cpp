// SPDX-License-Identifier: GPL-3.0-or-later

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QGenericPlugin>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QStyle>
#include <QTextStream>
#include <QTimer>

/// A hand inside the real program, for the tests of whole processes: a plugin that the toolkit loads when the
/// program starts. It tells on standard error what it sees, closes every message box, and does what
/// VORHAVEN_HAND says: "close" (in the middle of a run), "exit" (by the button, while results are open) or
/// "fail" (fight no battle, which is an error that no user can reach).
class Hand final : public QObject {
public:
    Hand() {
        connect(&timer_, &QTimer::timeout, this, [this] { Look(); });
        timer_.start(10);
    }

private:
    void Look() {
        if (auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            const QString text = box->text() + "|" + box->informativeText();
            QTextStream(stderr) << (QApplication::overrideCursor() == nullptr ? "box with the usual pointer: "
                                                                              : "box with another pointer: ");
            for (const QLabel* label : box->findChildren<QLabel*>())
                QTextStream(stderr) << (label->textFormat() == Qt::PlainText ? "" : "with markup ");
            QTextStream(stderr) << QString(text).replace('\n', '/') << "\n";
            box->accept();
        } else if (!hasActed_) {
            for (QWidget* window : QApplication::topLevelWidgets())
                if (window->isVisible() && window->windowTitle() == "Vorhaven 3 Combat Calculator")
                    Act(*window);
        }
    }

    void Act(QWidget& window) {
        hasActed_ = true;
        QTextStream(stderr) << "first army: "
                            << Called<QComboBox>(window, "Select Attacking Armies")->itemText(0) << "\n"
                            << Called<QComboBox>(window, "Select Defending Armies")->toolTip() << "\nicon:";
        for (const QSize& size : window.windowIcon().availableSizes())
            QTextStream(stderr) << ' ' << window.windowIcon().pixmap(size).width();
        QTextStream(stderr) << "\nstyle: " << QApplication::style()->name() << "\n";
        for (const char* name : {"Select Attacking Armies", "Select Defending Armies"}) {
            auto* const picker = Called<QComboBox>(window, name);
            picker->showPopup();
            emit picker->activated(0);
            picker->hidePopup();
        }
        const QString deed = qEnvironmentVariable("VORHAVEN_HAND");
        const bool exits = deed == "exit";
        const char* const battles = exits ? "10" : deed == "fail" ? "0" : "9000000";
        Called<QLineEdit>(window, "Number of Battles")->setText(battles);
        if (deed == "close")
            QTimer::singleShot(100, &window, [&window] {
                QTextStream(stderr) << "closed in the middle\n";
                window.close();
            });
        // Later: no message box can be closed while this has not returned.
        QTimer::singleShot(0, &window, [&window, exits] {
            for (const char* button : {"&Attack", "&More Results", "E&xit"})
                if (exits || button == QByteArray("&Attack"))
                    Called<QAbstractButton>(window, button)->click();
        });
    }

    template <class Widget>
    static Widget* Called(const QWidget& window, const QString& name) {
        for (Widget* widget : window.findChildren<Widget*>())
            if (widget->accessibleName() == name || widget->property("text").toString() == name)
                return widget;
        qFatal("no widget is called %s", qPrintable(name));
    }

    QTimer timer_;
    bool hasActed_ = false;
};

class HandPlugin final : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "Hand.json")

public:
    QObject* create(const QString& /*name*/, const QString& /*arguments*/) override { return new Hand; }
};

#include "Hand.moc"
