// The price list of the customer: each article of a family as the question has it, more of them as one scrolls.

import {camino, cantidad, contar, crear, Fallo, filaDe, importe, preguntar, tabla} from './comun.js';

const PAGINA = 30;
const COLUMNAS = [{rotulo: 'Artículo', numero: true}, {rotulo: 'Descripción'}, {rotulo: 'Precio', numero: true}, {rotulo: 'Dto.', numero: true},
    {rotulo: 'Neto', numero: true}, {rotulo: 'Qué lo pone'}];

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

/** The first lines of the list, what brings the others, and the whole of it as a file. */
export async function listaDe(pregunta, familia, sesion, senal) {
    const {articulo, cliente, cualidadX, cualidadY, ...terminos} = pregunta;
    const seleccion = {...terminos, clientes: cliente, familias: familia === 'todas' ? '' : familia};
    const cuerpo = tabla('Lista de precios', COLUMNAS, []);
    const cuenta = crear('p', {class: 'nota', role: 'status'});
    const mas = crear('button', {type: 'button', click: () => seguir()}, 'Más líneas');
    let siguiente = 0, puestas = 0, ultima = Promise.resolve();

    const traer = async () => {
        if (siguiente === null) return;
        const pagina = await preguntar('lista', {...seleccion, saltar: siguiente, lineas: PAGINA}, senal);
        cuerpo.querySelector('tbody').append(...pagina.lineas.map(linea => filaDe(celdas(linea), i => COLUMNAS[i].numero ? 'numero' : undefined)));
        puestas += pagina.lineas.length;
        siguiente = pagina.siguiente;
        mas.hidden = siguiente === null;
        cuenta.textContent = contar(puestas, 'línea', 'líneas') + (siguiente === null ? '' : '; hay más') +
            (pagina.limite === 'tiempo' ? '. Se ha acabado el tiempo de una pregunta: pida más.' : '');
    };
    // One after another: lines stand in the order of the list.
    const seguir = () => ultima = ultima.then(traer).catch(error => {
        if (error instanceof Fallo) cuenta.textContent = error.message;
    });
    const vista = new IntersectionObserver(entradas => entradas.some(e => e.isIntersecting) && seguir(), {rootMargin: '300px'});
    await traer();
    vista.observe(mas);
    senal.addEventListener('abort', () => vista.disconnect());
    const fichero = (clase, mas) => crear('a', {href: camino(`lista.${clase}`, {...seleccion, ...mas}), download: `precios-cliente-${cliente}.${clase}`}, `Guardar en ${clase.toUpperCase()}`);
    return [crear('p', {class: 'fila'}, fichero('csv', {excel: 1}), fichero('xlsx', {}), crear('span', {class: 'nota'}, `hasta ${cantidad(sesion.limiteDescarga)} líneas, sin los artículos bloqueados`)), cuerpo, cuenta, mas];
}

const celdas = l => [String(l.articulo), l.descripcion, l.precio ? importe(l.precio) : 'sin precio', l.descuento ? `${cantidad(l.descuento)} %` : '—',
    l.precio ? importe(l.neto) : '—', l.motivo];
