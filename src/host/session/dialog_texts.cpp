// Words of the boxes.
#include "host/session/dialog_texts.h"

namespace chartproject {

DialogTexts DialogTextsOf(const std::string& language) {
  if (language == "Portuguese") {
    return {"OK",
            "Cancelar",
            "&Sim",
            "&Não",
            "A&juda",
            "&Abrir",
            "&Salvar",
            "Procurar em:",
            "&Nome do arquivo:",
            "Arquivos do tipo:",
            "Ajuda",
            "O arquivo de ajuda %1 não foi encontrado.",
            "O arquivo de ajuda %1 não pode ser mostrado aqui."};
  }
  if (language == "Spanish") {
    return {"Aceptar",
            "Cancelar",
            "&Sí",
            "&No",
            "A&yuda",
            "&Abrir",
            "&Guardar",
            "Buscar en:",
            "&Nombre de archivo:",
            "Archivos de tipo:",
            "Ayuda",
            "No se encontró el archivo de ayuda %1.",
            "El archivo de ayuda %1 no se puede mostrar aquí."};
  }
  return {};
}

}  // namespace chartproject
