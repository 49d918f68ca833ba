#include "LimiteSaisie.h"

#include "Messages.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QValidator>
#include <memory>

namespace LimiteSaisie {

namespace {
class Limite : public QValidator {
public:
    Limite(QLineEdit *boite, int caracteres) : QValidator(boite), caracteres_(caracteres), avant_(boite->text().size()) {
        // The box's text as it stood before an edit: during the check the box already shows the new one.
        connect(boite, &QLineEdit::textChanged, this, [this](const QString &texte) { avant_ = texte.size(); });
    }
    State validate(QString &texte, int &) const override {
        // A text already longer (stored before the limit was known) may still be shortened.
        return texte.size() > caracteres_ && texte.size() > avant_ ? Invalid : Acceptable;
    }

private:
    int caracteres_;
    qsizetype avant_;
};

void direLimite(int caracteres) {
    Messages::information(QStringLiteral("Ce champ contient au plus %1 caractères : le texte qui l'aurait dépassé "
                                         "n'a pas été ajouté. Raccourcissez-le, puis recommencez.")
                              .arg(caracteres));
}
}  // namespace

void limiter(QLineEdit *boite, int caracteres) {
    boite->setValidator(new Limite(boite, caracteres));
    QObject::connect(boite, &QLineEdit::inputRejected, boite, [caracteres] { direLimite(caracteres); });
}

void limiter(QPlainTextEdit *boite, int caracteres) {
    // A box of several lines has no validator: an edit that goes past the limit is
    // taken back as soon as it is made, the cursor where it was.
    auto avant = std::make_shared<QString>(boite->toPlainText());
    QObject::connect(boite, &QPlainTextEdit::textChanged, boite, [boite, caracteres, avant] {
        const QString texte = boite->toPlainText();
        if (texte.size() <= caracteres || texte.size() <= avant->size()) {
            *avant = texte;
            return;
        }
        const qsizetype position = qBound(qsizetype(0), boite->textCursor().position() - (texte.size() - avant->size()),
                                          avant->size());
        {
            const QSignalBlocker bloque(boite);
            boite->setPlainText(*avant);
        }
        QTextCursor curseur = boite->textCursor();
        curseur.setPosition(int(position));
        boite->setTextCursor(curseur);
        direLimite(caracteres);
    });
}

}  // namespace LimiteSaisie
