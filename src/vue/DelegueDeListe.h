// Draws the cells of a dialog's list, whose rows are its own.
#pragma once

#include <QStyledItemDelegate>

class LignesChoisies;

class DelegueDeListe : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// `choix` is not owned, and outlives the delegate.
    explicit DelegueDeListe(const LignesChoisies& choix, QObject* parent = nullptr);

    QString displayText(const QVariant& valeur, const QLocale& locale) const override;
    /// The rest of a very long text need not be laid out.
    static QString PartieVisible(const QString& texte);

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    const LignesChoisies& m_choix;
};
