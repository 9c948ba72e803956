// node dwgReader.mjs MODULE_FOLDER FILE...: what a DWG reader that nobody here wrote finds in each file, one JSON line each.
import fs from "fs";
import path from "path";
import { pathToFileURL } from "url";

const folder = path.resolve(process.argv[2]);
const { Dwg_File_Type, LibreDwg } = await import(pathToFileURL(path.join(folder, "dist/libredwg-web.js")));

// The reader tells its error number by a line of text only.
const said = [];
for (const name of ["log", "warn", "error", "info"]) console[name] = (...words) => said.push(words.join(" "));
const lib = await LibreDwg.create(path.join(folder, "wasm") + "/");

const texts = (entities) =>
    entities.map((entity) => entity.text)
        .map((text) => (typeof text === "object" && text !== null ? text.text : text))
        .filter((text) => typeof text === "string");

// MINSERTs are read, but not among the entities of their block.
const MINSERT = 8;
const minserts = (data) => {
    let count = 0;
    for (let index = 0; index < lib.dwg_get_num_objects(data); ++index)
        count += lib.dwg_object_get_fixedtype(lib.dwg_get_object(data, index)) === MINSERT;
    return count;
};

const kinds = (entities) => {
    const counts = {};
    for (const entity of entities) counts[entity.type] = (counts[entity.type] ?? 0) + 1;
    return counts;
};

for (const file of process.argv.slice(3)) {
    said.length = 0;
    const bytes = fs.readFileSync(file);
    const data = lib.dwg_read_data(bytes.buffer.slice(bytes.byteOffset, bytes.byteOffset + bytes.length), Dwg_File_Type.DWG);
    const found = { file, error: 0, said: [...said] };
    for (const line of said) found.error = Number(/error code: *(\d+)/.exec(line)?.[1] ?? found.error);
    if (data) {
        const { database, stats } = lib.convertEx(data);
        found.unknown = stats.unknownEntityCount;
        found.layers = database.tables.LAYER.entries.map((layer) => layer.name);
        found.blocks = [];
        found.texts = [];
        found.attributes = [];
        found.minserts = minserts(data);
        for (const block of database.tables.BLOCK_RECORD.entries) {
            found.blocks.push([block.name, kinds(block.entities)]);   // several may have one name
            found.texts.push(...texts(block.entities.filter((entity) => ["TEXT", "MTEXT"].includes(entity.type))));
            found.attributes.push(...texts(block.entities.flatMap((entity) => entity.attribs ?? [])));
        }
        lib.dwg_free(data);
    } else {
        found.error = found.error || -1;
    }
    process.stdout.write(JSON.stringify(found) + "\n");
}
