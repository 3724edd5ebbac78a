// The price list of the customer: each article of a family as the question has it, more of them as one scrolls.

import {cantidad, contar, crear, Fallo, filaDe, importe, preguntar, tabla} from './comun.js';
import {porqueDe} from './historia.js';

const PAGINA = 30;
const COLUMNAS = [{rotulo: 'Artículo', numero: true}, {rotulo: 'Descripción'}, {rotulo: 'Precio', numero: true}, {rotulo: 'Dto.', numero: true},
    {rotulo: 'Neto', numero: true}, {rotulo: 'Existencias', numero: true}, {rotulo: 'Por qué'}];

/** Offers the families of the article that was asked for, from the narrowest, and all articles. */
export function opcionesLista(campo, documento, sesion, elegida) {
    const codigos = documento ? [documento.familia1, documento.familia2, documento.familia3] : [];
    const nombres = [sesion.familia1, sesion.familia2, sesion.familia3];
    const opciones = [['todas', 'todos']];
    for (let n = 1; n <= codigos.length && codigos[n - 1] && (n === 1 || nombres[n - 1]); ++n) {
        const familia = codigos.slice(0, n).join('.');
        opciones.unshift([familia, `${(nombres[n - 1] ?? 'familia').toLowerCase()} ${familia}`]);
    }
    if (elegida && !opciones.some(([valor]) => valor === elegida)) opciones.unshift([elegida, `familia ${elegida}`]);
    campo.replaceChildren(...opciones.map(([valor, rotulo]) => crear('option', {value: valor}, rotulo)));
    campo.value = elegida || opciones[0][0];
}

/** The first lines of the list, and what brings the others and saves them. */
export async function listaDe(pregunta, familia, sesion, senal) {
    const {articulo, cualidadX, cualidadY, ...terminos} = pregunta;
    const {articulos, hallados} = await preguntar('articulos', {empresa: pregunta.empresa, familia: familia === 'todas' ? '' : familia, limite: sesion.limiteHallados}, senal);
    const lineas = [];
    const cuerpo = tabla('Lista de precios', COLUMNAS, []);
    const cuenta = crear('p', {class: 'nota', role: 'status'});
    const mas = crear('button', {type: 'button', click: () => seguir()}, 'Más líneas');
    const guardar = crear('button', {type: 'button', click: () => seguir(articulos.length).then(() => bajar(lineas, pregunta))}, 'Guardar en CSV');
    let ultima = Promise.resolve();

    // One after another: lines stand in the order of their codes.
    const seguir = (cuantas = PAGINA) => ultima = ultima.then(async () => {
        const nuevas = await Promise.all(articulos.slice(lineas.length, lineas.length + cuantas).map(fila => linea(fila, terminos, senal)));
        lineas.push(...nuevas);
        cuerpo.querySelector('tbody').append(...nuevas.map(celdas => filaDe(celdas, i => COLUMNAS[i].numero ? 'numero' : undefined)));
        mas.hidden = lineas.length === articulos.length;
        cuenta.textContent = `${contar(lineas.length, 'línea', 'líneas')} de ${cantidad(articulos.length)}` +
            (hallados > articulos.length ? `. Hay ${cantidad(hallados)} artículos y aquí caben ${cantidad(articulos.length)}: elija una familia.` : '');
    }).catch(error => error.name === 'AbortError' || Promise.reject(error));
    const vista = new IntersectionObserver(entradas => entradas.some(e => e.isIntersecting) && seguir(), {rootMargin: '300px'});
    await seguir();
    vista.observe(mas);
    senal.addEventListener('abort', () => vista.disconnect());
    return [crear('p', {}, guardar), cuerpo, cuenta, mas];
}

async function linea(fila, terminos, senal) {
    try {
        const d = await preguntar('cargar', {...terminos, articulo: fila.codigo}, senal);
        return [String(fila.codigo), fila.descripcion, d.precio ? importe(d.precio) : 'sin precio', d.descuento ? `${cantidad(d.descuento)} %` : '—',
            d.precio ? importe(d.neto) : '—', cantidad(d.existencias), porqueDe(d)];
    } catch (error) {
        if (!(error instanceof Fallo)) throw error;
        return [String(fila.codigo), fila.descripcion, '—', '—', '—', '—', error.message];
    }
}

// As a Spanish spreadsheet opens it right: a mark of UTF-8, semicolons, decimal commas, and no text that is a formula.
function bajar(lineas, pregunta) {
    const celda = (valor, i) => COLUMNAS[i].numero ? valor.replace(/^—$|\.(?=\d{3})/g, '') : `"${valor.replace(/^[=+\-@]/, "'$&").replaceAll('"', '""')}"`;
    const texto = [COLUMNAS.map(c => c.rotulo), ...lineas].map((fila, n) => fila.map(n ? celda : valor => valor).join(';') + '\r\n').join('');
    const direccion = URL.createObjectURL(new Blob(['\ufeff', texto], {type: 'text/csv'}));
    crear('a', {href: direccion, download: `precios-cliente-${pregunta.cliente}.csv`}).click();
    setTimeout(() => URL.revokeObjectURL(direccion), 1000);
}
