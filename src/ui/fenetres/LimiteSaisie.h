#pragma once
// A text box that holds no more than its field can store: what would go past the
// limit (typed or pasted) is refused whole, with a message that says the limit,
// rather than cut without a word.

class QLineEdit;
class QPlainTextEdit;

namespace LimiteSaisie {

void limiter(QLineEdit *boite, int caracteres);
void limiter(QPlainTextEdit *boite, int caracteres);

}  // namespace LimiteSaisie
