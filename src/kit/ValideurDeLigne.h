// Keeps a field of one line to one line, and characters out that have no place in it.
#pragma once

#include <QString>
#include <QValidator>

/// For a QLineEdit. Line breaks, which come with what is pasted, become blanks; those at the end go. An edit that
/// brings a character of `interdits` is taken back as a whole.
class ValideurDeLigne : public QValidator
{
    Q_OBJECT

public:
    explicit ValideurDeLigne(QObject* parent, const QString& interdits = QString());

    State validate(QString& texte, int& position) const override;

signals:
    /// An edit was taken back.
    void Refuse() const;

private:
    QString m_interdits;
};
