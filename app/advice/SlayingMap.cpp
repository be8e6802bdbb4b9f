// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/advice/SlayingMap.h"

#include "app/controls/Binding.h"
#include "app/controls/CopyTable.h"
#include "app/program/ErrorReport.h"
#include "app/program/Shade.h"
#include "app/program/SideColours.h"

#include <QFontInfo>
#include <QHeaderView>
#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include <algorithm>
#include <cmath>

namespace vorhaven {
namespace {

// Sizes in em: of a cell, and of a column of sums; the same where cells are small.
constexpr QSizeF CellSize{80.0 / 12.0, 32.0 / 12.0};
constexpr double SumWidth = 42.0 / 12.0;
constexpr QSizeF SmallCellSize{2.0, 13.0 / 12.0};
constexpr double SmallSumWidth = 24.0 / 12.0;

/// How much smaller texts are where columns are closer than usual.
constexpr double CloseFont = 0.78;

// The share of a side's colour in a half of a cell, by its chance.
constexpr double MostColour = 0.92;
constexpr double ColourPower = 0.75;

QString ToQt(const std::string& text) {
    return QString::fromStdString(text);
}

QFont Scaled(QFont font, double factor) {
    font.setPointSizeF(font.pointSizeF() * factor);
    return font;
}

std::size_t Index(int place) {
    return static_cast<std::size_t>(place);
}

} // namespace

/// The pairs as a table, with two columns of sums behind the defenders and a row of sums below the attackers.
class SlayingMap::Pairs final : public QAbstractTableModel {
public:
    Pairs(const SlayingPage& page, QObject* parent) : QAbstractTableModel(parent), page_(&page) {}

    [[nodiscard]] int Attackers() const { return static_cast<int>(page_->Armies(Side::Attacker).size()); }
    [[nodiscard]] int Defenders() const { return static_cast<int>(page_->Armies(Side::Defender).size()); }
    [[nodiscard]] bool IsPair(const QModelIndex& index) const {
        return index.isValid() && index.row() < Attackers() && index.column() < Defenders();
    }

    [[nodiscard]] int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : Attackers() + 1;
    }
    [[nodiscard]] int columnCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : Defenders() + 2;
    }
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override {
        return IsPair(index) ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags;
    }
    /// The texts of a cell: of both halves where it has halves, otherwise of one.
    [[nodiscard]] QStringList Texts(const QModelIndex& index) const {
        const bool isSumOfRow = index.column() >= Defenders();
        const bool isLast = index.column() > Defenders();
        if (IsPair(index)) {
            const Odds::Slaying& pair = page_->At(Index(index.row()), Index(index.column()));
            return {ToQt(SlayingPage::Figure(pair.ByAttacker)), ToQt(SlayingPage::Figure(pair.ByDefender))};
        }
        if (index.row() == Attackers() && isSumOfRow)
            return {
                ToQt(SlayingPage::TotalText(page_->TotalSlain(isLast ? Side::Attacker : Side::Defender)))};
        if (isSumOfRow) {
            const SlayingPage::Army& army = page_->Armies(Side::Attacker)[Index(index.row())];
            return {ToQt(page_->SumText(isLast ? army.IsSlain : army.Slays, Side::Attacker))};
        }
        const SlayingPage::Army& army = page_->Armies(Side::Defender)[Index(index.column())];
        return {ToQt(page_->SumText(army.IsSlain, Side::Defender)),
                ToQt(page_->SumText(army.Slays, Side::Defender))};
    }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        if (role == Qt::DisplayRole)
            return Texts(index).join('/');
        if (role == Qt::ToolTipRole || role == Qt::AccessibleTextRole) {
            if (IsPair(index))
                return ToQt(page_->Sentence(Index(index.row()), Index(index.column())));
            return role == Qt::AccessibleTextRole ? data(index, Qt::DisplayRole) : QVariant{};
        }
        return {};
    }
    [[nodiscard]] const SlayingPage::Army* ArmyOf(int section, Qt::Orientation orientation) const {
        const auto& armies = page_->Armies(orientation == Qt::Vertical ? Side::Attacker : Side::Defender);
        return Index(section) < armies.size() ? &armies[Index(section)] : nullptr;
    }
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (role != Qt::DisplayRole && role != Qt::ToolTipRole && role != Qt::AccessibleTextRole)
            return {};
        if (const SlayingPage::Army* const army = ArmyOf(section, orientation))
            return ToQt(army->NameWithConditions());
        if (role == Qt::ToolTipRole)
            return {};
        if (orientation == Qt::Vertical)
            return SlayingPage::BelowHeading;
        return section == Defenders() ? SlayingPage::SlaysHeading : SlayingPage::IsSlainHeading;
    }

    void Reset() {
        beginResetModel();
        endResetModel();
    }
    [[nodiscard]] const SlayingPage& Page() const { return *page_; }

private:
    const SlayingPage* page_;
};

/// The names of one side, with what they suffer or have below; of many armies, the defenders' names are
/// upright and each has its line number.
class SlayingMap::Names final : public QHeaderView {
public:
    Names(Qt::Orientation orientation, SlayingMap& map)
        : QHeaderView(orientation, &map), map_(&map), pairs_(map.pairs_) {
        setSectionsClickable(false);
        setHighlightSections(false);
        setMinimumSectionSize(4);
        setSectionResizeMode(Fixed);
    }

    [[nodiscard]] QSize sizeHint() const override {
        const int gap = fontMetrics().averageCharWidth();
        const QFontMetrics names(map_->NameFont());
        const QFontMetrics notes(Small(map_->NameFont()));
        int longest = orientation() == Qt::Vertical ? notes.horizontalAdvance(SlayingPage::BelowHeading) : 0;
        for (int section = 0; const auto* const army = pairs_->ArmyOf(section, orientation()); ++section)
            longest = std::max({longest, names.horizontalAdvance(ToQt(army->Name)) + NumberWidth(),
                                IsSmall() || orientation() == Qt::Horizontal
                                    ? 0
                                    : std::min(notes.horizontalAdvance(ToQt(army->Conditions)),
                                               notes.averageCharWidth() * 16)});
        if (orientation() == Qt::Vertical)
            return {longest + 2 * gap, 0};
        return {0, IsSmall() ? longest + gap : 2 * names.height() + notes.height() + gap / 2};
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        QHeaderView::paintEvent(event);
        // Beyond the sections, too, the names have the Base colour behind them.
        const int end = length() - offset();
        QRect rest = viewport()->rect();
        if (orientation() == Qt::Vertical)
            rest.setTop(end);
        else if (isRightToLeft())
            rest.setWidth(rest.width() - end);
        else
            rest.setLeft(end);
        QPainter painter(viewport());
        painter.fillRect(rest, palette().color(QPalette::Base));
        for (int section = 0; section < count(); ++section)
            if (map_->IsOfSums(*this, section))
                paintSection(&painter, RectOf(section), section);
    }
    bool viewportEvent(QEvent* event) override {
        // A name that the headings of the sums cover is not pointed at.
        if (event->type() == QEvent::ToolTip) {
            const QPoint position = static_cast<QHelpEvent*>(event)->pos();
            const int place = orientation() == Qt::Vertical ? position.y() : position.x();
            if (map_->IsOfSums(*this, map_->SectionAt(*this, place)))
                return true;
        }
        return QHeaderView::viewportEvent(event);
    }
    void paintSection(QPainter* painter, const QRect& rect, int section) const override {
        painter->save();
        painter->setClipRect(rect);
        painter->fillRect(rect, palette().color(QPalette::Base));
        const QColor text = palette().color(QPalette::Text);
        const QColor quiet = Shaded(text, palette().color(QPalette::Base), Shade::Quiet);
        const SlayingPage::Army* const army = pairs_->ArmyOf(section, orientation());
        if (army == nullptr)
            PaintHeading(*painter, rect, section, quiet);
        else if (!IsSmall())
            PaintName(*painter, rect, *army, text, quiet);
        else
            PaintNumbered(*painter, rect, *army, text, quiet);
        if (army != nullptr && army->BeginsStack) {
            painter->setPen(quiet);
            painter->drawLine(rect.topLeft(), rect.topRight());
        }
        painter->restore();
    }

private:
    [[nodiscard]] bool IsSmall() const { return pairs_->Page().IsSmall(); }
    [[nodiscard]] QRect RectOf(int section) const {
        const int place = map_->PlaceOf(*this, section);
        return orientation() == Qt::Vertical ? QRect(0, place, width(), sectionSize(section))
                                             : QRect(place, 0, sectionSize(section), height());
    }
    [[nodiscard]] int NumberWidth() const {
        return IsSmall() ? QFontMetrics(map_->NameFont()).horizontalAdvance(QStringLiteral("  00")) : 0;
    }

    void PaintHeading(QPainter& painter, const QRect& rect, int section, const QColor& quiet) const {
        painter.setFont(Small(map_->NameFont()));
        painter.setPen(quiet);
        const QString heading = pairs_->headerData(section, orientation(), Qt::DisplayRole).toString();
        const int gap = fontMetrics().averageCharWidth() / 2;
        painter.drawText(rect.adjusted(gap, 0, 0, -gap / 2),
                         static_cast<int>(orientation() == Qt::Vertical ? Qt::AlignLeft | Qt::AlignVCenter
                                                                        : Qt::AlignHCenter | Qt::AlignBottom),
                         heading);
    }

    /// The name in up to two lines above the columns, or in one beside the rows; its conditions below.
    void PaintName(QPainter& painter, const QRect& rect, const SlayingPage::Army& army, const QColor& text,
                   const QColor& quiet) const {
        const bool isBeside = orientation() == Qt::Vertical;
        const int gap = fontMetrics().averageCharWidth() / 2;
        const QFont nameFont = isBeside ? map_->NameFont() : map_->ColumnFont();
        const QFontMetrics names(nameFont);
        const QFontMetrics notes(Small(nameFont));
        const QString note = notes.elidedText(ToQt(army.Conditions), Qt::ElideRight, rect.width() - 2 * gap);
        const int noteHeight = note.isEmpty() ? 0 : isBeside ? notes.height() - 3 : notes.height();
        QRect place = rect.adjusted(gap, 0, -gap, -gap / 2);
        QRect below = place;
        if (isBeside) {
            const int top = place.center().y() - (names.height() + noteHeight) / 2 + 1;
            place = QRect(place.left(), top, place.width(), names.height());
            below = QRect(place.left(), place.bottom() - 1, place.width(), notes.height());
        } else {
            below.setTop(place.bottom() - notes.height());
            place.setBottom(place.bottom() - noteHeight);
        }
        painter.setFont(nameFont);
        painter.setPen(text);
        painter.drawText(place,
                         isBeside ? static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter)
                                  : Qt::AlignHCenter | Qt::AlignBottom | Qt::TextWordWrap,
                         ToQt(army.Name));
        painter.setFont(Small(nameFont));
        painter.setPen(quiet);
        painter.drawText(
            below,
            static_cast<int>(isBeside ? Qt::AlignLeft | Qt::AlignTop : Qt::AlignHCenter | Qt::AlignBottom),
            note);
    }

    void PaintNumbered(QPainter& painter, const QRect& rect, const SlayingPage::Army& army,
                       const QColor& text, const QColor& quiet) const {
        const int gap = fontMetrics().averageCharWidth() / 2;
        QRect place = rect;
        Qt::Alignment numberSide = Qt::AlignRight;
        if (orientation() == Qt::Horizontal) {
            painter.translate(rect.left(), rect.bottom() + 1);
            painter.rotate(-90);
            painter.setLayoutDirection(Qt::LeftToRight);
            place = QRect(0, 0, rect.height(), rect.width());
            numberSide = Qt::AlignLeft;
        }
        place.adjust(gap, 0, -gap, 0);
        painter.setFont(map_->NameFont());
        painter.setPen(quiet);
        painter.drawText(place, static_cast<int>(numberSide | Qt::AlignVCenter), QString::number(army.Line));
        painter.setPen(text);
        if (numberSide == Qt::AlignLeft)
            place.setLeft(place.left() + NumberWidth());
        painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter, ToQt(army.Name));
    }

    SlayingMap* map_;
    Pairs* pairs_;
};

namespace {

/// Paints the halves of a cell, each in the colour of its chance.
class PairDelegate final : public QStyledItemDelegate {
public:
    PairDelegate(const SlayingPage& page, const SlayingMap& map, QObject* parent)
        : QStyledItemDelegate(parent), page_(&page), map_(&map) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        // Sums are no cells to go to, but are shown like them.
        const QPalette& colours = map_->palette();
        const QColor base = colours.color(QPalette::Base);
        const QColor text = colours.color(QPalette::Text);
        const auto& attackers = page_->Armies(Side::Attacker);
        const auto row = Index(index.row());
        const bool isPair =
            row < attackers.size() && Index(index.column()) < page_->Armies(Side::Defender).size();
        const QStringList figures = index.data().toString().split('/');
        painter->save();
        // Figures are read so in every layout: ".5", "<1".
        painter->setLayoutDirection(Qt::LeftToRight);
        painter->setFont(map_->FigureFont());
        if (isPair) {
            const Odds::Slaying& pair = page_->At(row, Index(index.column()));
            PaintHalf(*painter, HalfOf(option.rect, 0), Side::Attacker, pair.ByAttacker, figures[0], colours);
            PaintHalf(*painter, HalfOf(option.rect, 1), Side::Defender, pair.ByDefender, figures[1], colours);
            PaintLines(*painter, option.rect, index, Shaded(text, base, Shade::TableLine));
            if (index == map_->currentIndex()) {
                painter->setPen(QPen(text, page_->IsSmall() ? 1 : 2));
                painter->drawRect(page_->IsSmall() ? option.rect.adjusted(0, 0, -1, -1)
                                                   : option.rect.adjusted(1, 1, -1, -1));
            }
        } else {
            painter->setPen(text);
            if (figures.size() > 1 && !page_->IsSmall())
                painter->setFont(map_->ColumnFont());
            for (int part = 0; part < figures.size(); ++part)
                painter->drawText(figures.size() == 1 ? option.rect : HalfOf(option.rect, part),
                                  Qt::AlignCenter, figures[part]);
        }
        if (row < attackers.size() && attackers[row].BeginsStack) {
            painter->setPen(Shaded(text, base, Shade::Quiet));
            painter->drawLine(option.rect.topLeft(), option.rect.topRight());
        }
        painter->restore();
    }

private:
    static QRect HalfOf(const QRect& cell, int half) {
        const int width = cell.width() / 2;
        return half == 0 ? QRect(cell.left(), cell.top(), width, cell.height())
                         : QRect(cell.left() + width, cell.top(), cell.width() - width, cell.height());
    }

    void PaintHalf(QPainter& painter, const QRect& place, Side side, double chance, const QString& figure,
                   const QPalette& colours) const {
        const QColor base = colours.color(QPalette::Base);
        const double share = MostColour * std::pow(std::clamp(chance, 0.0, 1.0), ColourPower);
        const QColor fill = Mixed(SideColour(side, colours), base, share);
        painter.fillRect(place, fill);
        const bool isTiny = figure.startsWith('<');
        if (isTiny && page_->IsSmall())
            return;
        painter.setPen(isTiny ? Shaded(colours.color(QPalette::Text), fill, Shade::Dimmed)
                              : FarthestFrom(fill));
        painter.drawText(place, Qt::AlignCenter, figure);
    }

    /// The lines around a cell, which it shares with its neighbours.
    static void PaintLines(QPainter& painter, const QRect& cell, const QModelIndex& index,
                           const QColor& colour) {
        painter.setPen(colour);
        painter.drawLine(cell.topRight(), cell.bottomRight());
        painter.drawLine(cell.bottomLeft(), cell.bottomRight());
        if (index.row() == 0)
            painter.drawLine(cell.topLeft(), cell.topRight());
        if (index.column() == 0)
            painter.drawLine(cell.topLeft(), cell.bottomLeft());
    }

    const SlayingPage* page_;
    const SlayingMap* map_;
};

} // namespace

SlayingMap::SlayingMap(SlayingPage& page, QWidget* parent)
    : QTableView(parent), page_(&page), pairs_(new Pairs(page, this)) {
    setModel(pairs_);
    setHorizontalHeader(new Names(Qt::Horizontal, *this));
    setVerticalHeader(new Names(Qt::Vertical, *this));
    setItemDelegate(new PairDelegate(page, *this, this));
    setAccessibleName(QString::fromUtf8(SlayingPage::Title));
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setShowGrid(false);
    setCornerButtonEnabled(false);
    setTabKeyNavigation(false);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerPixel);
    // The place between the names is no button, and has the Base colour like the rest.
    for (QWidget* corner : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        if (corner->inherits("QTableCornerButton"))
            corner->setMaximumSize(0, 0);
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    OfferCopy(*this);
    Follow();
    KeepWith(*this, page.Changed.Connect([this] { Follow(); }));
}

SlayingMap::~SlayingMap() = default;

QFont SlayingMap::NameFont() const {
    return page_->IsSmall() ? Scaled(font(), 0.84) : font();
}

QFont SlayingMap::FigureFont() const {
    return page_->IsSmall() ? Scaled(font(), 0.7) : font();
}

QFont SlayingMap::ColumnFont() const {
    return isClose_ ? Scaled(font(), CloseFont) : NameFont();
}

void SlayingMap::Follow() {
    const bool isFirst = !currentIndex().isValid();
    const std::array scrolled{horizontalScrollBar()->value(), verticalScrollBar()->value()};
    pairs_->Reset();
    FitCells();
    if (pairs_->Attackers() == 0)
        return;
    const SlayingPage::Cell current = page_->Current();
    setCurrentIndex(pairs_->index(static_cast<int>(current.Attacker), static_cast<int>(current.Defender)));
    if (isFirst)
        return;
    horizontalScrollBar()->setValue(scrolled[0]);
    verticalScrollBar()->setValue(scrolled[1]);
}

void SlayingMap::FitCells() {
    const int em = QFontInfo(font()).pixelSize();
    const bool isSmall = page_->IsSmall();
    const QSizeF cell = (isSmall ? SmallCellSize : CellSize) * em;
    const int sumWidth = qRound((isSmall ? SmallSumWidth : SumWidth) * em);
    int width = qRound(cell.width());
    int height = qRound(cell.height());
    if (!isSmall && pairs_->Attackers() > 0) {
        // Rather closer cells than a part of them out of sight, as far as they can be read.
        const QSize room = contentsRect().size() - QSize(verticalHeader()->sizeHint().width(),
                                                         horizontalHeader()->sizeHint().height());
        // Two sums side by side, in the smaller font.
        const int least = qRound(CloseFont * 2 * fontMetrics().horizontalAdvance(QStringLiteral("0.000")));
        width =
            std::clamp((room.width() - 2 * sumWidth) / pairs_->Defenders(), std::min(least, width), width);
        height = std::clamp(room.height() / (pairs_->Attackers() + 1),
                            std::min(fontMetrics().height() * 7 / 4, height), height);
    }
    isClose_ = width < qRound(cell.width());
    for (int column = 0; column < pairs_->columnCount({}); ++column)
        setColumnWidth(column, column < pairs_->Defenders() ? width : sumWidth);
    for (int row = 0; row < pairs_->rowCount({}); ++row)
        setRowHeight(row, height);
    // The row of sums is a little apart from small cells.
    if (isSmall)
        setRowHeight(pairs_->Attackers(), height * 3 / 2);
}

bool SlayingMap::IsOfSums(const QHeaderView& header, int section) const {
    return section >= (header.orientation() == Qt::Vertical ? pairs_->Attackers() : pairs_->Defenders());
}

int SlayingMap::PlaceOf(const QHeaderView& header, int section) const {
    const int place = header.sectionViewportPosition(section);
    if (!IsOfSums(header, section))
        return place;
    const int fromEnd = header.length() - header.sectionPosition(section);
    if (header.orientation() == Qt::Vertical)
        return std::min(place, viewport()->height() - fromEnd);
    return isRightToLeft() ? std::max(place, fromEnd - header.sectionSize(section))
                           : std::min(place, viewport()->width() - fromEnd);
}

int SlayingMap::SectionAt(const QHeaderView& header, int place) const {
    for (int section = header.count() - 1; section >= 0 && IsOfSums(header, section); --section) {
        const int start = PlaceOf(header, section);
        if (place >= start && place < start + header.sectionSize(section))
            return section;
    }
    return header.logicalIndexAt(place);
}

QRect SlayingMap::visualRect(const QModelIndex& index) const {
    QRect place = QTableView::visualRect(index);
    if (index.isValid())
        place.moveTo(PlaceOf(*horizontalHeader(), index.column()), PlaceOf(*verticalHeader(), index.row()));
    return place;
}

QModelIndex SlayingMap::indexAt(const QPoint& position) const {
    return pairs_->index(SectionAt(*verticalHeader(), position.y()),
                         SectionAt(*horizontalHeader(), position.x()));
}

void SlayingMap::scrollTo(const QModelIndex& index, ScrollHint hint) {
    QTableView::scrollTo(index, hint);
    if (!pairs_->IsPair(index))
        return;
    // Out from under the sums.
    const QRect place = visualRect(index);
    const QRect sums = visualRect(pairs_->index(pairs_->Attackers(), pairs_->Defenders()));
    const int sideways = isRightToLeft() ? sums.right() - place.left() : place.right() - sums.left();
    const std::pair<QScrollBar*, int> covered[] = {{horizontalScrollBar(), sideways + 1},
                                                   {verticalScrollBar(), place.bottom() - sums.top() + 1}};
    for (const auto& [bar, pixels] : covered)
        bar->setValue(bar->value() + std::max(0, pixels));
}

void SlayingMap::scrollContentsBy(int dx, int dy) {
    QTableView::scrollContentsBy(dx, dy);
    for (QWidget* moved : {viewport(), horizontalHeader()->viewport(), verticalHeader()->viewport()})
        moved->update();
}

void SlayingMap::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    QPainter painter(viewport());
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    // The corner comes last, over the sums that go on below it.
    for (int row = 0; row < pairs_->rowCount({}); ++row)
        for (int column = 0; column < pairs_->columnCount({}); ++column) {
            const QModelIndex index = pairs_->index(row, column);
            if (pairs_->IsPair(index))
                continue;
            option.rect = visualRect(index);
            painter.fillRect(option.rect, palette().color(QPalette::Base));
            itemDelegate()->paint(&painter, option, index);
        }
    // The line around the pairs, also where they go on below the sums. The current cell's frame is over it.
    const QRect sums = visualRect(pairs_->index(pairs_->Attackers(), pairs_->Defenders()));
    QRect pairs = viewport()->rect();
    pairs.setBottom(sums.top() - 1);
    if (isRightToLeft())
        pairs.setLeft(sums.right() + 1);
    else
        pairs.setRight(sums.left() - 1);
    painter.setPen(
        Shaded(palette().color(QPalette::Text), palette().color(QPalette::Base), Shade::TableLine));
    painter.drawLine(pairs.bottomLeft(), pairs.bottomRight());
    const int side = isRightToLeft() ? pairs.left() : pairs.right();
    painter.drawLine(side, pairs.top(), side, pairs.bottom());
    if (!pairs_->IsPair(currentIndex()))
        return;
    painter.setClipRect(pairs);
    option.rect = visualRect(currentIndex());
    itemDelegate()->paint(&painter, option, currentIndex());
}

void SlayingMap::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    FitCells();
    // The sentence is about this cell.
    scrollTo(currentIndex(), EnsureVisible);
}

void SlayingMap::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    viewport()->update();
    if (pairs_->IsPair(current))
        RunOutermost([&] { page_->Pick({Index(current.row()), Index(current.column())}); });
}

void SlayingMap::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        FitCells();
}

} // namespace vorhaven
