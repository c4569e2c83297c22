// Draws the lines of a list of image names: the small picture, then the name.
#pragma once

#include <QStyledItemDelegate>

class Vignettes;

class DelegueVignettes : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// `vignettes` is not owned and outlives the delegate.
    DelegueVignettes(Vignettes& vignettes, QObject* parent);

    /// All lines are as high, whatever their picture: nothing is decoded to know it.
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    Vignettes& m_vignettes;
};
