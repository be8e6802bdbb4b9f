// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/program/ProgramIcon.h"

#include <QDir>
#include <QIconEngine>
#include <QPixmap>

namespace vorhaven {
namespace {

class LazyIcon final : public QIconEngine {
public:
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        Decoded().paint(painter, rect, Qt::AlignCenter, mode, state);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return Decoded().pixmap(size, 1.0, mode, state);
    }
    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override {
        return Decoded().availableSizes(mode, state);
    }
    [[nodiscard]] QIconEngine* clone() const override { return new LazyIcon; }

private:
    const QIcon& Decoded() {
        if (decoded_.isNull())
            for (const QFileInfo& picture : QDir(QStringLiteral(":/icons")).entryInfoList())
                decoded_.addFile(picture.filePath());
        return decoded_;
    }

    QIcon decoded_;
};

} // namespace

QIcon ProgramIcon() {
    return QIcon(new LazyIcon);
}

} // namespace vorhaven
