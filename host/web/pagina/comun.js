// What the whole page shares: elements, numbers and days for people, and the questions to the program.

const SVG = 'http://www.w3.org/2000/svg';

function poner(elemento, atributos, hijos) {
    for (const [nombre, valor] of Object.entries(atributos)) {
        if (typeof valor === 'function') elemento.addEventListener(nombre, valor);
        else if (valor !== undefined && valor !== null && valor !== false) elemento.setAttribute(nombre, valor === true ? '' : valor);
    }
    elemento.append(...hijos.flat(Infinity).filter(hijo => hijo !== null && hijo !== ''));
    return elemento;
}

/** An element; a function among its attributes listens to the event of that name. Its texts are only ever text. */
export const crear = (nombre, atributos = {}, ...hijos) => poner(document.createElement(nombre), atributos, hijos);
export const dibujar = (nombre, atributos = {}, ...hijos) => poner(document.createElementNS(SVG, nombre), atributos, hijos);

const deImporte = new Intl.NumberFormat('es-ES', {minimumFractionDigits: 2, maximumFractionDigits: 4});
const deCantidad = new Intl.NumberFormat('es-ES', {maximumFractionDigits: 4});

export const importe = numero => deImporte.format(numero);
export const cantidad = numero => deCantidad.format(numero);
/** 2026-12-31 as 31/12/2026. */
export const dia = iso => iso.split('-').reverse().join('/');
/** The day `dias` later. */
export const otroDia = (iso, dias) => new Date(Date.parse(iso) + dias * 864e5).toISOString().slice(0, 10);
/** The days from one to another. */
export const diasEntre = (desde, hasta) => Math.round((Date.parse(hasta) - Date.parse(desde)) / 864e5);
/** One form for one thing, the other for any other number of them. */
export const contar = (numero, uno, varios) => `${cantidad(numero)} ${numero === 1 ? uno : varios}`;

/** A table with a caption. A column is {rotulo, numero: aligned to the right}; a row is a list of cells. */
export function tabla(titulo, columnas, filas) {
    const clase = i => columnas[i].numero ? 'numero' : undefined;
    return crear('div', {class: 'rodable', tabindex: 0, role: 'region', 'aria-label': titulo},
        crear('table', {}, crear('caption', {}, titulo),
            crear('thead', {}, crear('tr', {}, columnas.map((c, i) => crear('th', {scope: 'col', class: clase(i)}, c.rotulo)))),
            crear('tbody', {}, filas.map(fila => filaDe(fila, clase)))));
}

export const filaDe = (celdas, clase) =>
    crear('tr', {}, celdas.map((celda, i) => crear('td', {class: clase(i)}, celda)));

/** What the program refused, with the parameter that it is about. */
export class Fallo extends Error {
    constructor(mensaje, campo = '') {
        super(mensaje);
        this.campo = campo;
    }
}

/** The address of a question; what is left empty is not asked. */
export function camino(nombre, parametros) {
    const dichos = Object.entries(parametros).filter(([, valor]) => valor !== '' && valor !== undefined && valor !== null);
    return `api/${nombre}?${new URLSearchParams(dichos)}`;
}

/** The answer to a question. Raises Fallo, or AbortError when `senal` ended it. */
export async function preguntar(nombre, parametros, senal) {
    let respuesta, documento;
    try {
        respuesta = await fetch(camino(nombre, parametros), {signal: senal});
        documento = await respuesta.json();
    } catch (error) {
        if (error.name === 'AbortError') throw error;
        throw new Fallo('El programa no contesta. ¿Sigue en marcha «kvdatosart servir»?');
    }
    if (!respuesta.ok) throw new Fallo(documento.error.mensaje, documento.error.campo);
    return documento;
}

/** Runs a question after ending the former one of the same place; what was ended does nothing more. */
export function turno() {
    let anterior = new AbortController();
    return async accion => {
        anterior.abort();
        const mio = anterior = new AbortController();
        try {
            await accion(mio.signal);
        } catch (error) {
            if (error.name !== 'AbortError') throw error;
        }
    };
}
