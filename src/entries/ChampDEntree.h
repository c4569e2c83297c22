// The field in which a value of an entry is typed, with the list of the column's pre-recorded texts.
//
// Macros become the date or the time as soon as they stand there, but never inside a composition of an input method.
// Whatever replaces the text, a macro, a choice from the list or Remplacer, can be undone like typing; what undo brings
// back never holds a macro.
#pragma once

#include <QComboBox>

class QStringListModel;

class ChampDEntree : public QComboBox
{
    Q_OBJECT

public:
    explicit ChampDEntree(QWidget* parent = nullptr);

    QString Texte() const { return currentText(); }
    QStringList Liste() const;

    /// Shows a value and the texts of its column; the caret goes to its end. A value with macros is told by Change.
    void Montrer(const QString& texte, const QStringList& liste);
    /// The same, and the list stays.
    void Montrer(const QString& texte);
    /// Empties the list; the text stays.
    void ViderListe() { MettreListe({}); }

    /// Puts `texte` in place of what stands there, as if it were typed.
    void Remplacer(const QString& texte);
    void CaretALaFin();

    /// The element of the list that was chosen last and not typed over since, from 0; -1 for none.
    int Choix() const { return m_choix; }
    /// Takes element `i` (from 0) out of the list; the text stays.
    void Retirer(int i);

signals:
    /// The text is another one now, macros replaced.
    void Change(const QString& texte);
    /// The focus came from another control.
    void Entree();

protected:
    void focusInEvent(QFocusEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void TexteChange();
    void Corriger();
    void Ecrire(const QString& texte, qsizetype caret);
    void MettreListe(const QStringList& liste);

    QStringListModel* m_liste;
    QString m_dernier; ///< the text when it was last told
    int m_choix = -1;
    bool m_silence = false;     ///< changes of the text are the field's own
    bool m_composition = false; ///< an input method is at work
};
