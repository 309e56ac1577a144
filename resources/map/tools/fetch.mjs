// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// node fetch.mjs NPM SOURCE_FOLDER TARGET_FOLDER: installs what the lock file names into TARGET_FOLDER/node_modules.
// A failure is told in one line that begins with "marvo: ", which the set-up scripts look for.
import {spawnSync} from 'node:child_process';
import {copyFileSync, mkdirSync, readFileSync, rmSync} from 'node:fs';
import {join} from 'node:path';

const [npm, sourceFolder, targetFolder] = process.argv.slice(2);
mkdirSync(targetFolder, {recursive: true});
for (const name of ['package.json', 'package-lock.json'])
    copyFileSync(join(sourceFolder, name), join(targetFolder, name));

// npm's own patience (minutes of retries) would look like a hang of the build.
const result = spawnSync(npm, [
    'ci', '--ignore-scripts', '--prefer-offline', '--no-audit', '--no-fund', '--no-update-notifier',
    '--fetch-retries=1', '--fetch-retry-mintimeout=500', '--fetch-retry-maxtimeout=2000', '--fetch-timeout=20000',
], {cwd: targetFolder, encoding: 'utf8', timeout: 180000});

if (result.status !== 0) {
    rmSync(join(targetFolder, 'node_modules'), {recursive: true, force: true});
    const wanted = Object.entries(JSON.parse(readFileSync(join(sourceFolder, 'package.json'), 'utf8')).dependencies)
        .map(([name, version]) => `${name} ${version}`).join(', ');
    const said = `${result.error?.message ?? ''}\n${result.stderr ?? ''}`;
    const network =
        /\b(EAI_AGAIN|ENOTFOUND|ETIMEDOUT|ECONNREFUSED|ECONNRESET|ENETUNREACH|EHOSTUNREACH|ENOTCACHED)\b/.exec(said);
    const reason = network ? `no network: ${network[1]}`
        : /^npm (?:ERR!|error) (?!code)(.+)$/m.exec(said)?.[1]
            ?? (said.trim().split('\n')[0] || `exit ${result.status}`);
    console.error(`marvo: could not fetch the map page's packages with npm (${reason}): ${wanted}`);
    process.exit(1);
}
