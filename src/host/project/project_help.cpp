// What the user reads about the two windows and about driver files.
#include "host/project/project_help.h"

namespace chartproject {

namespace {

constexpr std::string_view kEnglish = R"(<!DOCTYPE html>
<html lang="en"><head><meta charset="utf-8"><title>ChartProject help</title></head><body>
<h1>Recording and viewing trends</h1>
<p>ChartProject reads parameters of a drive at a fixed rate, keeps them in a chart file and shows the file as a chart.
<a href="#91">Recording</a> &middot; <a href="#200">The chart window</a> &middot; <a href="#152">Driver files</a></p>

<h2><a name="91"></a>Recording: the acquisition dialog</h2>
<p>Fill the fields from the top. <b>Start Data Acquisition</b> appears
when everything is there.</p>
<ul>
<li><b>Drive Address</b>: the drives of the current project. The model stands below the list.</li>
<li><b>Number of Parameters</b>: one to four. A list for each opens; it offers what the drive has.</li>
<li><b>Number of Points</b>: 1 to 2000000000. Up to 2500 points stay in memory until the end; longer recordings are
written to the disk point by point, and nothing taken is lost when the program fails: the points are then in the file
whose name is the chart file's with <b>.tcf0</b> behind it.</li>
<li><b>Time among Points</b>: 200 to 65535 ms, 1 to 65 s, or a time as hh:mm:ss. The first point is taken one such time
after the start.</li>
<li><b>Trigger Mode</b>: <i>Manual</i> starts at once. <i>Event</i> waits until the drive runs, is ready, reports
undervoltage, a digital input of P012 changes, or a parameter compares with the content that you enter. Not every model
has every event.</li>
<li><b>File Name</b>: where the recording goes. A file of that name is replaced only when the new one is complete.</li>
</ul>
<p>While a recording runs the dialog shows the point being taken. <b>Esc</b> ends it early; the points taken are kept.
When the disk is almost full the recording ends by itself and keeps its points. <b>View Chart</b> opens the file.</p>
<p><b>The drive does not answer:</b> check its address, cable and supply. While an event is waited for you are asked
whether to go on; during a recording the point gets the value 0, and the recording goes on.</p>

<h2><a name="200"></a>The chart window</h2>
<ul>
<li><b>Scroll bar</b>: moves through the recording. <b>Points per division</b>: how much of it is seen at once.</li>
<li><b>Scale</b>: each series is multiplied by its scale (1 to 32767); <b>Update Chart</b> applies new scales.</li>
<li><b>Chart Type, Grid, Line, Marker</b>: how the series are drawn; they are remembered.</li>
<li><b>Print</b> puts what you see on paper; <b>Export</b> writes every point to a spreadsheet file.</li>
</ul>

<h2><a name="152"></a>Driver files</h2>
<p>A driver file names the parameters of a drive model in one language. Its lines are comments (beginning with '),
sections ([...]), header lines (such as Type=...), and parameters: 14 signs # with 13 fields between them, the last one
empty. <b>Error in line ...</b>: that line is none of these; it is passed over. <b>Unknown unit</b>: field 6 is no known
keyword; the parameter is read without a unit. Install the driver file again, or correct the line.</p>
</body></html>
)";

constexpr std::string_view kPortuguese = R"(<!DOCTYPE html>
<html lang="pt-BR"><head><meta charset="utf-8"><title>Ajuda do ChartProject</title></head><body>
<h1>Registrar e ver tendências</h1>
<p>O ChartProject lê parâmetros de um acionamento em intervalos fixos, guarda-os em um arquivo de gráfico e mostra o
arquivo. <a href="#91">Registrar</a> &middot; <a href="#200">A janela do gráfico</a> &middot;
<a href="#152">Arquivos de driver</a></p>

<h2><a name="91"></a>Registrar: a janela de aquisição</h2>
<p>Preencha os campos de cima para baixo. <b>Iniciar a aquisição de dados</b> aparece
quando não falta nada.</p>
<ul>
<li><b>Endereço do drive</b>: os acionamentos do projeto atual. O modelo aparece abaixo da lista.</li>
<li><b>Número de parâmetros</b>: de um a quatro. Cada um tem sua lista, com o que o acionamento oferece.</li>
<li><b>Número de pontos</b>: 1 a 2000000000. Até 2500 pontos ficam na memória até o fim; registros mais longos são
gravados no disco ponto a ponto, e nada se perde quando o programa falha: os pontos ficam então no arquivo cujo nome é o
do arquivo de gráfico seguido de <b>.tcf0</b>.</li>
<li><b>Tempo entre pontos</b>: 200 a 65535 ms, 1 a 65 s, ou um tempo hh:mm:ss. O primeiro ponto vem um intervalo depois
do início.</li>
<li><b>Modo de disparo</b>: <i>Manual</i> começa já. <i>Evento</i> espera o acionamento girar, ficar pronto,
indicar subtensão, uma entrada digital do P012 mudar, ou um parâmetro atender à comparação com o conteúdo
digitado. Nem todo modelo tem todos os eventos.</li>
<li><b>Nome do arquivo</b>: onde fica o registro. Um arquivo de mesmo nome só é substituído quando o novo
está completo.</li>
</ul>
<p>Durante o registro a janela mostra o ponto atual. <b>Esc</b> termina antes; os pontos lidos ficam guardados. Com o
disco quase cheio o registro termina sozinho e guarda seus pontos. <b>Ver gráfico</b> abre o arquivo.</p>
<p><b>O acionamento não responde:</b> verifique endereço, cabo e alimentação. Na espera de um evento pergunta-se se deve
continuar; durante o registro o ponto recebe o valor 0, e o registro continua.</p>

<h2><a name="200"></a>A janela do gráfico</h2>
<ul>
<li><b>Barra de rolagem</b>: percorre o registro. <b>Pontos por divisão</b>: quanto dele se vê de uma vez.</li>
<li><b>Escala</b>: cada série é multiplicada por sua escala (1 a 32767); <b>Atualizar gráfico</b> aplica as novas.</li>
<li><b>Tipo de gráfico, Grade, Linha, Marcador</b>: como as séries são desenhadas; a escolha é lembrada.</li>
<li><b>Imprimir</b> põe no papel o que se vê; <b>Exportar</b> grava todos os pontos em uma planilha.</li>
</ul>

<h2><a name="152"></a>Arquivos de driver</h2>
<p>Um arquivo de driver dá nome aos parâmetros de um modelo em um idioma. Suas linhas são comentários (começam com '),
seções ([...]), cabeçalhos (como Type=...) e parâmetros: 14 sinais # com 13 campos entre eles, o último vazio.
<b>Erro na linha ...</b>: a linha não é nada disso e é ignorada. <b>Unidade desconhecida</b>: o campo 6 não é uma
palavra conhecida; o parâmetro é lido sem unidade. Instale o driver de novo ou corrija a linha.</p>
</body></html>
)";

constexpr std::string_view kSpanish = R"(<!DOCTYPE html>
<html lang="es"><head><meta charset="utf-8"><title>Ayuda de ChartProject</title></head><body>
<h1>Registrar y ver tendencias</h1>
<p>ChartProject lee parámetros de un accionamiento a intervalos fijos, los guarda en un archivo de gráfico y muestra el
archivo. <a href="#91">Registrar</a> &middot; <a href="#200">La ventana del gráfico</a> &middot;
<a href="#152">Archivos de driver</a></p>

<h2><a name="91"></a>Registrar: la ventana de adquisición</h2>
<p>Complete los campos de arriba hacia abajo. <b>Iniciar la adquisición de datos</b>
aparece cuando no falta nada.</p>
<ul>
<li><b>Dirección del drive</b>: los accionamientos del proyecto actual. El modelo aparece debajo de la lista.</li>
<li><b>Número de parámetros</b>: de uno a cuatro. Cada uno tiene su lista, con lo que ofrece el accionamiento.</li>
<li><b>Número de puntos</b>: 1 a 2000000000. Hasta 2500 puntos quedan en memoria hasta el final; los registros más
largos se escriben en el disco punto por punto, y nada se pierde si el programa falla: los puntos quedan entonces en el
archivo cuyo nombre es el del archivo de gráfico seguido de <b>.tcf0</b>.</li>
<li><b>Tiempo entre puntos</b>: 200 a 65535 ms, 1 a 65 s, o un tiempo hh:mm:ss. El primer punto llega un intervalo
después del inicio.</li>
<li><b>Modo de disparo</b>: <i>Manual</i> comienza enseguida. <i>Evento</i> espera a que el accionamiento gire, esté
listo, indique subtensión, cambie una entrada digital del P012, o un parámetro cumpla la comparación con el contenido
escrito. No todos los modelos tienen todos los eventos.</li>
<li><b>Nombre del archivo</b>: dónde queda el registro. Un archivo del mismo nombre se reemplaza sólo cuando el
nuevo está completo.</li>
</ul>
<p>Durante el registro la ventana muestra el punto actual. <b>Esc</b> lo termina antes; los puntos leídos se conservan.
Con el disco casi lleno el registro termina solo y conserva sus puntos. <b>Ver gráfico</b> abre el archivo.</p>
<p><b>El accionamiento no responde:</b> revise dirección, cable y alimentación. Al esperar un evento se pregunta si se
desea continuar; durante el registro el punto recibe el valor 0, y el registro continúa.</p>

<h2><a name="200"></a>La ventana del gráfico</h2>
<ul>
<li><b>Barra de desplazamiento</b>: recorre el registro. <b>Puntos por división</b>: cuánto se ve a la vez.</li>
<li><b>Escala</b>: cada serie se multiplica por su escala (1 a 32767); <b>Actualizar gráfico</b> aplica las nuevas.</li>
<li><b>Tipo de gráfico, Cuadrícula, Línea, Marcador</b>: cómo se dibujan las series; la elección se recuerda.</li>
<li><b>Imprimir</b> lleva al papel lo que se ve; <b>Exportar</b> escribe todos los puntos en una hoja de cálculo.</li>
</ul>

<h2><a name="152"></a>Archivos de driver</h2>
<p>Un archivo de driver da nombre a los parámetros de un modelo en un idioma. Sus líneas son comentarios (empiezan con
'), secciones ([...]), encabezados (como Type=...) y parámetros: 14 signos # con 13 campos entre ellos, el último vacío.
<b>Error en la línea ...</b>: la línea no es nada de eso y se pasa por alto. <b>Unidad desconocida</b>: el campo 6 no es
una palabra conocida; el parámetro se lee sin unidad. Instale el driver otra vez o corrija la línea.</p>
</body></html>
)";

}  // namespace

ProjectFiles MakeHelpFiles(std::string_view folder) {
  const std::string place = std::string(folder) + "/";
  return {{place + "Kshelpp.HLP", std::string(kPortuguese)},
          {place + "Kshelpe.HLP", std::string(kEnglish)},
          {place + "Kshelps.HLP", std::string(kSpanish)}};
}

}  // namespace chartproject
